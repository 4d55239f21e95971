#include "KVUtils/Source/data/FileHelpers.h"
#include "KVUtils/Tests/data/TestFile.h"

namespace kv {
namespace {

using Modus = KVFileOpenModusTYPE;

class FileHelpersTest : public test::FileTest {
  protected:
    static std::string TakeAll(void* handle) {
        char bytes[20] = {};
        unsigned long count = sizeof bytes;
        EXPECT_TRUE(KVReadFromFile(handle, bytes, count));
        return {bytes, count};
    }
    static bool Put(void* handle, std::string const& text) {
        auto count = static_cast<unsigned long>(text.size());
        return KVWriteToFile(handle, text.data(), count) && count == text.size();
    }
};

TEST_F(FileHelpersTest, ModesOpenWhatTheySay) {
    struct {
        Modus modus;
        bool makes, reads, writes;
    } const rows[] = {{Modus::Read, false, true, false},
                      {Modus::Write, true, false, true},
                      {Modus::WriteExisting, false, false, true},
                      {Modus::ReadWrite, true, true, true},
                      {Modus::ReadWriteExisting, false, true, true}};
    for (auto const& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.modus));
        void* handle = this;
        EXPECT_EQ(KVOpenFile(handle, PathOf("gr\xFCn"), row.modus, 0, 0), row.makes);
        EXPECT_EQ(handle != nullptr, row.makes);
        EXPECT_EQ(KVCloseFile(handle), row.makes);
        EXPECT_EQ(KVDeleteFile(PathOf("gr\xFCn")), row.makes);

        ASSERT_TRUE(KVOpenFile(handle, Write("file", "content"), row.modus, 7, 7));
        EXPECT_EQ(Put(handle, "CON"), row.writes);
        char byte = 0;
        unsigned long count = 1;
        EXPECT_EQ(KVReadFromFile(handle, &byte, count) && count == 1, row.reads);
        EXPECT_TRUE(KVCloseFile(handle));
        EXPECT_EQ(Read(PathOf("file")), row.writes ? "CONtent" : "content");
    }
    void* handle = this;
    EXPECT_FALSE(KVOpenFile(handle, PathOf("file"), static_cast<Modus>(5), 0, 0));
    EXPECT_EQ(handle, nullptr);
}

TEST_F(FileHelpersTest, StartAndSize) {
    void* handle = nullptr;
    ASSERT_TRUE(KVOpenFile(handle, PathOf("file"), Modus::ReadWrite, 0, 0));
    EXPECT_TRUE(Put(handle, "hello"));
    EXPECT_EQ(TakeAll(handle), "");
    EXPECT_TRUE(KVResetFilePointer(handle));
    EXPECT_EQ(TakeAll(handle), "hello");
    EXPECT_TRUE(KVResetFileSize(handle));
    EXPECT_TRUE(Put(handle, "new"));
    EXPECT_TRUE(KVCloseFile(handle));
    EXPECT_EQ(Read(PathOf("file")), "new");
}

TEST_F(FileHelpersTest, FailuresSayNo) {
    unsigned long count = 5;
    char bytes[5];
    EXPECT_FALSE(KVReadFromFile(nullptr, bytes, count));
    EXPECT_EQ(count, 0U);
    EXPECT_FALSE(KVWriteToFile(nullptr, bytes, count));
    EXPECT_EQ(count, 0U);
    EXPECT_FALSE(KVResetFilePointer(nullptr) || KVResetFileSize(nullptr) || KVCloseFile(nullptr));
    EXPECT_FALSE(KVDeleteFile(PathOf("none")));
    EXPECT_FALSE(KVDeleteFile(directory_.string()));
    EXPECT_TRUE(std::filesystem::exists(directory_));
}

TEST_F(FileHelpersTest, PathsWithoutAnotherFormStay) {
    for (char const* const path : {"", "file", "/a/b c\\gr\xFCn.txt", "Q:\\not\\there.txt", "Q:"}) {
        EXPECT_EQ(KVGetUncName(path, true), path);
        EXPECT_EQ(KVGetUncName(path, false), path);
        EXPECT_EQ(KVGetShortPath(path), path);
    }
}

}  // namespace
}  // namespace kv
