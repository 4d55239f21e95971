#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Tests/frame/FrameSupport.h"

#include <string>

namespace kv::test {

namespace {

std::string ends;  // the names of the services in the order of their destruction

class Service : public KVSingleton {
  public:
    explicit Service(char name) : name_(name) {}
    ~Service() override {
        ends += name_;
        instance_ = instance_ == this ? nullptr : instance_;
    }

    static Service* CreateService(char name) {
        return Create(instance_, [name] { return new Service(name); });
    }
    static Service* Instance() { return InstanceOrNull(instance_, "Service"); }

  private:
    char name_;
    static Service* instance_;
};

Service* Service::instance_ = nullptr;

struct KVSingletonTest : testing::Test {
    KVSingletonTest() { ends.clear(); }
};

TEST_F(KVSingletonTest, TheEndTakesTheYoungestFirst) {
    auto* const a = new Service('a');
    auto* const b = new Service('b');
    auto* const c = new Service('c');
    Service d('d');
    KVSingleton::Insert(a);
    KVSingleton::Insert(b);
    KVSingleton::Insert(c);
    KVSingleton::Remove(&d);       // not in the list
    KVSingleton::Replace(&d, &d);  // neither
    auto* const e = new Service('e');
    KVSingleton::Replace(b, e);  // in the same place
    KVSingleton::DeleteAllSingleton();
    EXPECT_EQ(ends, "cea");
    for (Service* const dead : {a, e, c}) KVSingleton::Remove(dead);
    KVSingleton::DeleteAllSingleton();
    EXPECT_EQ(ends, "cea") << "the list is empty again";
    delete b;
}

TEST_F(KVSingletonTest, ASecondCreationReplacesTheObject) {
    Service::CreateService('a');
    Service* const b = Service::CreateService('b');
    EXPECT_EQ(ends, "a");
    EXPECT_EQ(Service::Instance(), b);
    KVSingleton::DeleteAllSingleton();
    EXPECT_EQ(ends, "ab") << "one entry in the list";
    EXPECT_EQ(Service::Instance(), nullptr);
    KVSingleton::Remove(b);
}

TEST_F(KVSingletonTest, BeforeTheCreationThereIsNullAndNoBox) {
    BoxScript const boxes;
    EXPECT_EQ(Service::Instance(), nullptr);
    EXPECT_TRUE(boxes.seen.empty());
}

}  // namespace

}  // namespace kv::test
