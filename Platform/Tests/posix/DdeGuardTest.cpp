// Other users' programs are refused, and a program that sends malformed bytes loses only its own
// conversation.
#include "Platform/Ddeml.h"
#include "Platform/Tests/DdeEndpoint.h"
#include "Platform/Tests/RuntimeDirectory.h"
#include "Platform/Tests/TestSystem.h"
#include "Platform/posix/DdeFrame.h"
#include "Platform/posix/Descriptor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace platform {

namespace {

namespace fs = std::filesystem;

using detail::Descriptor;
using detail::FrameHeader;
using detail::FrameKind;
using tests::DdeEndpoint;
using tests::RunUntil;

// The number of another user, which need not exist.
constexpr uid_t Stranger = 12345;

/// Opens a socket and connects it to a name or binds it there.
Descriptor OpenSocket(decltype(::connect)* action, fs::path const& name) {
    Descriptor result(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{AF_UNIX, {}};
    name.string().copy(address.sun_path, sizeof address.sun_path - 1);
    if (action(result.Number(), reinterpret_cast<sockaddr const*>(&address), sizeof address) != 0)
        throw std::runtime_error("cannot connect or bind " + name.string());
    return result;
}

/// A client that sends arbitrary bytes.
class RawClient {
  public:
    explicit RawClient(fs::path const& name) : socket_(OpenSocket(&::connect, name)) {}

    /// Returns false if the receiver has ended the conversation or accepts no more.
    bool Send(std::string_view bytes) const {
        return send(socket_.Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT) ==
               static_cast<ssize_t>(bytes.size());
    }
    [[nodiscard]] bool IsEnded() const {
        std::array<char, 64> answer{};
        ssize_t const count = recv(socket_.Number(), answer.data(), answer.size(), MSG_DONTWAIT);
        return count == 0 || (count < 0 && errno == ECONNRESET);
    }
    void Close() { Descriptor const closed = std::move(socket_); }

  private:
    Descriptor socket_;
};

std::string Bytes(FrameHeader const& header, std::string_view body = {}) {
    std::string bytes(sizeof header, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    return bytes += body;
}

std::string Connect(std::string_view topic = "sink") {
    return Bytes(FrameHeader(FrameKind::Connect, DdeEndpoint::Service, topic),
                 std::string(DdeEndpoint::Service).append(topic));
}

std::string Poke(std::string_view item, std::string_view data) {
    return Bytes(FrameHeader(FrameKind::Poke, item, {}, data.size(), CF_TEXT),
                 std::string(item).append(data));
}

class DdeGuardTest : public testing::Test {
  protected:
    /// Returns the name of the first socket.
    [[nodiscard]] fs::path SocketName() const { return fs::directory_iterator(directory_.Sockets())->path(); }
    static void SetOwner(fs::path const& path, uid_t owner) {
        ASSERT_EQ(chown(path.c_str(), owner, static_cast<gid_t>(-1)), 0) << path;
    }

    tests::RuntimeDirectory directory_;
    std::string const confirm_ = Bytes(FrameHeader(FrameKind::Confirm, {}, {}));
};

TEST_F(DdeGuardTest, MalformedBytesEndTheSendersConversationOnly) {
    DdeEndpoint receiver("sink");
    fs::path const name = SocketName();
    DdeEndpoint const good("bystander");
    std::string const open = Connect() + confirm_;
    std::string tooLarge = Poke("ITEM", "data");
    std::uint32_t const length = DdeLargestData + 100;
    std::memcpy(tooLarge.data() + 4, &length, sizeof length);
    struct Row {
        char const* what;
        std::string bytes;
        bool closes;  // after the bytes
    };
    for (Row const& row : {
             Row{"nothing", "", true},
             Row{"garbage", std::string(5000, 'G'), false},
             Row{"zeros", std::string(5000, '\0'), false},
             Row{"half a header", Connect().substr(0, 9), true},
             Row{"a poke before a connect", Poke("ITEM", "data"), false},
             Row{"a confirm before a connect", confirm_, false},
             Row{"an unknown topic", Connect("other"), false},
             Row{"two connects", Connect() + Connect(), false},
             Row{"an accept", open + Bytes(FrameHeader(FrameKind::Accept, {}, {})), false},
             Row{"half a poke", open + Poke("ITEM", "never whole").substr(0, 30), true},
             Row{"too large a poke", open + tooLarge, false},
             Row{"garbage after a poke", open + Poke("ITEM", "x") + std::string(99, 'G'), false},
         }) {
        receiver.ClearLog();
        RawClient client(name);
        EXPECT_TRUE(client.Send(row.bytes)) << row.what;
        if (row.closes) client.Close();
        HCONV const conversation = good.Connect("sink");
        ASSERT_NE(conversation, nullptr) << row.what;
        ASSERT_TRUE(good.Poke(conversation, "GOOD", "1"));
        auto const& log = receiver.Log();
        auto const count = [&](char const* line) { return std::ranges::count(log, line); };
        EXPECT_TRUE(RunUntil([&] { return count("poke GOOD 1") == 1; })) << row.what;
        EXPECT_TRUE(RunUntil([&] { return row.closes || client.IsEnded(); })) << row.what;
        DdeDisconnect(conversation);
        // Only a confirmed client is disconnected; an incomplete poke is not delivered.
        EXPECT_TRUE(RunUntil([&] { return count("disconnect") == count("confirm"); })) << row.what;
        bool const isDelivered =
            std::ranges::any_of(log, [](auto const& l) { return l.starts_with("poke ITEM"); });
        EXPECT_EQ(isDelivered, row.bytes.find("ITEMx") != std::string::npos) << row.what;
    }
}

TEST_F(DdeGuardTest, UnknownCommandsAreRefused) {
    DdeEndpoint const endpoint("sink");
    EXPECT_EQ(DdeNameService(endpoint.Instance(), nullptr, nullptr, DNS_REGISTER), nullptr);
    EXPECT_EQ(DdeNameService(endpoint.Instance(), nullptr, nullptr, 99), nullptr);
    EXPECT_EQ(DdeGetLastError(endpoint.Instance()), DMLERR_INVALIDPARAMETER);
    EXPECT_EQ(DdeGetLastError(endpoint.Instance()), DMLERR_NO_ERROR) << "reading clears it";
}

TEST_F(DdeGuardTest, AnEndlessFrameTakesLittleMemory) {
    DdeEndpoint const receiver("sink");
    RawClient const client(SocketName());
    ASSERT_TRUE(client.Send(Connect()));
    ASSERT_TRUE(RunUntil([&] { return receiver.Log().size() == 1; }));
    ASSERT_TRUE(client.Send(confirm_ + Bytes(FrameHeader(FrameKind::Poke, {}, {}, DdeLargestData, CF_TEXT))));
    long const before = tests::ResidentKiB();
    std::string const block(64 << 10, 'e');
    // Garbage follows the announced bytes and ends the conversation.
    EXPECT_TRUE(RunUntil([&] {
        while (client.Send(block)) continue;
        return client.IsEnded();
    }));
    EXPECT_TRUE(!tests::MemoryIsMeasurable || tests::ResidentKiB() - before < 4L * DdeLargestData / 1024);
    EXPECT_TRUE(RunUntil([&] { return receiver.Log().back() == "disconnect"; }));
}

TEST_F(DdeGuardTest, SilentClientsAreLimited) {
    DdeEndpoint const receiver("sink");
    fs::path const name = SocketName();
    DdeEndpoint const good("bystander");
    std::vector<RawClient> silent;
    for (int i = 0; i < 300; ++i) silent.emplace_back(name);
    HCONV const conversation = good.Connect("sink");
    ASSERT_NE(conversation, nullptr);
    EXPECT_TRUE(RunUntil([&] { return silent.front().IsEnded(); })) << "the oldest is dropped";
    EXPECT_FALSE(silent.back().IsEnded());
    EXPECT_TRUE(good.Poke(conversation, "GOOD", "1"));
    EXPECT_TRUE(RunUntil([&] { return receiver.Log().back() == "poke GOOD 1"; }));
}

TEST_F(DdeGuardTest, ABusySenderDoesNotStarveOthers) {
    DdeEndpoint receiver("sink");
    DdeEndpoint const busy("busy");
    DdeEndpoint const other("other");
    HCONV const flood = busy.Connect("sink");
    HCONV const single = other.Connect("sink");
    std::size_t fromBusy = 0;
    bool isReceived = false;
    receiver.onPoke = [&](HCONV, std::string_view item, std::string_view) {
        fromBusy += item == "FLOOD" ? 1U : 0U;
        isReceived = isReceived || item == "SINGLE";
    };
    for (int i = 0; i < 200; ++i) ASSERT_TRUE(busy.Poke(flood, "FLOOD", "x"));
    // After the first, all of them are in the receiver's buffer.
    ASSERT_TRUE(RunUntil([&] { return fromBusy == 1; }));
    ASSERT_TRUE(other.Poke(single, "SINGLE", "x"));
    EXPECT_TRUE(RunUntil([&] { return isReceived; }));
    EXPECT_LT(fromBusy, 100U);
}

TEST_F(DdeGuardTest, DirectoriesMustBePrivate) {
    auto const initialize = [] {
        std::uint32_t instance = 0;
        auto const callback = [](unsigned, unsigned, HCONV, HSZ, HSZ, HDDEDATA, std::uintptr_t,
                                 std::uintptr_t) -> HDDEDATA { return nullptr; };
        unsigned const error = DdeInitializeA(&instance, callback, 0, 0);
        if (error == DMLERR_NO_ERROR) DdeUninitialize(instance);
        return error;
    };
    fs::path const sockets = directory_.Sockets();
    fs::path const runtime = directory_.Path();
    EXPECT_EQ(initialize(), DMLERR_NO_ERROR);
    EXPECT_EQ(fs::status(sockets).permissions(), fs::perms::owner_all);
    struct Row {
        char const* what;
        std::function<void()> change;
        bool needsRoot = false;
    };
    Row const rows[] = {
        {"open to the group", [&] { chmod(sockets.c_str(), 0750); }},
        {"open to all", [&] { chmod(sockets.c_str(), 0777); }},
        {"of another user", [&] { SetOwner(sockets, Stranger); }, true},
        {"a link", [&] { fs::remove(sockets), fs::create_directory_symlink(runtime, sockets); }},
        {"a file", [&] { fs::remove(sockets), tests::PutBytes(sockets, "x"); }},
        {"in a directory writable to all", [&] { chmod(runtime.c_str(), 0777); }},
        {"in another user's directory", [&] { SetOwner(runtime, Stranger); }, true},
    };
    for (Row const& row : rows) {
        if (row.needsRoot && geteuid() != 0) continue;
        fs::remove(sockets);
        fs::create_directory(sockets);
        chmod(sockets.c_str(), 0700);
        ASSERT_EQ(initialize(), DMLERR_NO_ERROR);
        row.change();
        EXPECT_EQ(initialize(), DMLERR_SYS_ERROR) << row.what;
        chmod(runtime.c_str(), 0700);
        SetOwner(runtime, geteuid());
    }
    // A socket address holds 107 bytes, less than the name of a directory.
    fs::path const deep = runtime / std::string(100, 'd') / std::string(100, 'e');
    fs::create_directories(deep);
    setenv("XDG_RUNTIME_DIR", deep.c_str(), 1);
    DdeEndpoint const endpoint("sink");
    EXPECT_NE(endpoint.Connect("sink"), nullptr);
}

TEST_F(DdeGuardTest, SocketsMustBePrivate) {
    DdeEndpoint const receiver("sink");
    DdeEndpoint const client("client");
    auto const change = [&](mode_t mode, uid_t owner) {
        for (fs::directory_entry const& entry : fs::directory_iterator(directory_.Sockets())) {
            chmod(entry.path().c_str(), mode);
            SetOwner(entry.path(), owner);
        }
    };
    for (auto const& [mode, owner] : {std::pair(0666U, geteuid()), std::pair(0600U, Stranger)}) {
        if (owner != geteuid() && geteuid() != 0) continue;
        std::size_t const calls = receiver.Log().size();
        change(mode, owner);
        EXPECT_EQ(client.Connect("sink"), nullptr) << mode;
        EXPECT_EQ(receiver.Log().size(), calls) << mode;
        change(0600, geteuid());
        EXPECT_NE(client.Connect("sink"), nullptr) << mode;
    }
}

// A peer that bypasses the permissions, for example with an inherited descriptor, is still checked.
TEST_F(DdeGuardTest, AnotherUsersProgramIsRefused) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can be two users";
    auto const asStranger = [](auto const& work) {
        ASSERT_EQ(seteuid(Stranger), 0);
        work();
        ASSERT_EQ(seteuid(0), 0);
    };
    DdeEndpoint const receiver("sink");
    fs::path const name = SocketName();
    for (fs::path const& path : {directory_.Path(), directory_.Sockets(), name}) chmod(path.c_str(), 0777);
    std::optional<RawClient> client;
    asStranger([&] { client.emplace(name); });
    EXPECT_TRUE(client->Send(Connect()));
    EXPECT_TRUE(RunUntil([&] { return client->IsEnded(); }));

    // The reverse: a socket that appears to be this user's, on which another user listens.
    for (fs::path const& path : {directory_.Path(), directory_.Sockets()}) chmod(path.c_str(), 0700);
    fs::path const trap = directory_.Sockets() / "trap";
    Descriptor const listener = OpenSocket(&::bind, trap);
    ASSERT_EQ(chmod(trap.c_str(), 0600), 0);
    asStranger([&] { ASSERT_EQ(listen(listener.Number(), 4), 0); });
    EXPECT_EQ(receiver.Connect("sink"), nullptr);
    std::array<char, 64> received{};
    Descriptor const caller(accept4(listener.Number(), nullptr, nullptr, SOCK_NONBLOCK));
    EXPECT_EQ(recv(caller.Number(), received.data(), received.size(), 0), 0) << "nothing is sent to it";
    EXPECT_TRUE(receiver.Log().empty());
}

}  // namespace

}  // namespace platform
