// The real HQMSERV with clients in this process and others.
#include "Apps/HQMSERV/Options.h"
#include "Apps/Tests/HQMSERV/Desktop.h"
#include "Apps/Tests/files/TestFiles.h"
#include "Apps/files/MeasurementFile.h"
#include "Apps/suite/ServerClient.h"
#include "Apps/suite/SuiteServices.h"
#include "KVUtils/KVUtils.h"
#include "Platform/Tests/TestSystem.h"

namespace hqmserv::test {

namespace {

using kv::MyMemoryBlock;
using suite::ServerClient;
using suite::ServerError;
using suite::ServerStatus;

ServerClient::Settings NotExclusive() {
    ServerClient::Settings settings;
    settings.isExclusive = false;
    return settings;
}

class ServerTest : public testing::Test {
  protected:
    MyMemoryBlock Ask(int message, MyMemoryBlock data = MyMemoryBlock()) {
        MyMemoryBlock answer;
        EXPECT_EQ(Office().SendAndReceive(0, message, data, answer, kv::DisEnable::Nothing), 1);
        return answer;
    }
    /// The answer's status and its first field, a long; -1 without one.
    std::pair<ServerStatus, long> AskLong(int message) {
        MyMemoryBlock answer = Ask(message);
        unsigned char status = 99;
        long value = -1;
        answer >> status;
        if (status == 0) answer >> value;
        return {ServerStatus{status}, value};
    }
    static kv::PostOffice& Office() { return *kv::PostOffice::Instance(); }

    Desktop desktop;
    suite::SuiteServices services{"BENCH", "1"};
};

TEST_F(ServerTest, MeasuresAsAnInstrumentDoes) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "HQMSERV does not exit after its last client under Wine";
    ServerProgram server({Chart});
    {
        ServerClient client(NotExclusive());
        suite::DeviceIdentity const device = client.Identify();
        EXPECT_EQ(device.name + '/' + device.serialNumber + '/' + device.softwareVersion,
                  "Replay/R-24/0.1.0");
        EXPECT_EQ(device.type, suite::DeviceType::Spectrophotometer);
        EXPECT_TRUE(client.IsReady());

        using Status = ServerStatus;
        EXPECT_EQ(AskLong(kv::SPECTRUM_REQUEST).first, Status::NothingMeasured);
        EXPECT_EQ(AskLong(kv::EXEC_MEASUREMENT).first, Status::WhiteMissing);
        EXPECT_EQ(client.Display(), "measure white first");
        client.MeasureWhite();
        EXPECT_EQ(client.BeginChart(), 24);
        EXPECT_EQ(client.Display(), "0/24 ready");

        auto const chart = files::ReadMeasurementFile(Chart);
        for (long number = 1; number <= 24; ++number) {
            auto const patch = client.Measure();
            auto const& sample = chart.samples.at(static_cast<std::size_t>(number - 1));
            EXPECT_EQ(patch.number, number);
            EXPECT_EQ(patch.name, sample.name);
            for (int k = 0; k < kv::SpectralPoints; ++k) EXPECT_EQ(patch.spectrum[k], sample.spectrum[k]);
        }
        EXPECT_EQ(client.Display(), "24/24 end of the chart");
        EXPECT_EQ(AskLong(kv::EXEC_MEASUREMENT).first, Status::EndOfChart);
        EXPECT_EQ(client.BeginChart(), 24);
        EXPECT_EQ(AskLong(kv::EXEC_MEASUREMENT), std::pair(Status::Done, 1L));
        EXPECT_EQ(AskLong(kv::MOVE_UP).first, Status::NotHandled);
    }
    EXPECT_TRUE(server.Ends());
}

TEST_F(ServerTest, AnswersQuestionsDuringAMeasurementInTheClientsLanguage) {
    ServerProgram server({"-LNG", "1", Chart, "--measuring-time", "2000"});
    ServerClient client(NotExclusive());
    EXPECT_EQ(client.Display(), "measure white first");
    MyMemoryBlock german;
    german << static_cast<unsigned char>(3) << static_cast<short>(49);
    Ask(kv::CONNECT, german);
    EXPECT_EQ(client.Display(), "zuerst Weiß messen");
    sv::String target(0);
    sv::String message(int{kv::EXEC_WHITE_MEASUREMENT});
    MyMemoryBlock nothing;
    ASSERT_EQ(Office().Send(target, message, nothing), 1);
    EXPECT_FALSE(client.IsReady());
    Ask(kv::NEW_MEASURE_REQUEST);  // answered after the measurement
    EXPECT_TRUE(client.IsReady());
}

struct Listener {
    std::vector<long> numbers;
    long TriggeredHdl(kv::KORVELEvent* event) {
        MyMemoryBlock data = event->GetData();
        data >> numbers.emplace_back(-1);
        return 0;
    }
};

TEST_F(ServerTest, NotifiesListenersOfTheTrigger) {
    ServerProgram server({Chart});
    Listener listener;
    Office().ChangeMessageHdl(kv::MESSUNG_AUSGELOEST, sv::Link::To<&Listener::TriggeredHdl>(listener), 1);
    ServerClient client(NotExclusive());
    client.MeasureWhite();
    auto const press = [this] { return AskLong(kv::MESSUNG_AUSGELOEST).second; };
    EXPECT_EQ(press(), 1);
    Ask(kv::NOTIFY_MESSUNG);
    Ask(kv::NOTIFY_MESSUNG);  // has no further effect
    EXPECT_EQ(press(), 2);
    EXPECT_EQ(press(), 3);
    Ask(kv::NOTIFY_MESSUNG_AUS);
    EXPECT_EQ(press(), 4);
    EXPECT_TRUE(client.IsReady());  // all notifications have arrived before this answer
    EXPECT_EQ(listener.numbers, (std::vector<long>{2, 3}));
}

TEST_F(ServerTest, AClientThatIsKilledIsDisconnected) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine does not report that a process has exited";
    ServerProgram server({Chart, "--measuring-time", "500"});
    auto client = std::make_unique<ServerClient>(NotExclusive());
    auto const isRefused = [&client] {
        try {
            static_cast<void>(client->Display());
            return false;
        } catch (ServerError const& error) {
            return error.Status() == ServerStatus::Refused;
        }
    };
    auto const waitUntilRefused = [&](bool expected) {
        for (int i = 0; i < 3000 && isRefused() != expected; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return isRefused() == expected;
    };
    {
        Program const killed(KV_COLOR, {"measure"});
        ASSERT_TRUE(waitUntilRefused(true)) << "it locks the server";
    }
    EXPECT_TRUE(waitUntilRefused(false));

    Program last(KV_COLOR, {"measure"});
    ASSERT_TRUE(waitUntilRefused(true));
    client.reset();
    last.Kill();
    EXPECT_TRUE(server.Ends());
}

TEST(PayloadTest, APatchArrivesExactly) {
    suite::MeasuredPatch patch{70'000, "Grün ½", kv::Spectrum()};
    float const values[] = {0.0F, -0.0F, 1.0F, 0.1F, 1e-38F, 3.4e38F};
    for (int k = 0; k < kv::SpectralPoints; ++k) patch.spectrum[k] = values[k % 6];
    MyMemoryBlock block;
    suite::PutPatch(block, patch);
    for (long length = 0; length < block.Len(); ++length) {
        MyMemoryBlock cut;
        cut.Put(block.GetDatenZeiger(), length);
        EXPECT_FALSE(suite::TakePatch(cut)) << length;
    }
    kv::PostOffice::Encode(block);
    kv::PostOffice::Decode(block);
    auto const back = suite::TakePatch(block);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->number, patch.number);
    EXPECT_EQ(back->name, patch.name);
    for (int k = 0; k < kv::SpectralPoints; ++k) {
        EXPECT_EQ(std::signbit(back->spectrum[k]), std::signbit(patch.spectrum[k]));
        EXPECT_EQ(back->spectrum[k], patch.spectrum[k]);
    }
}

TEST(PayloadTest, ConditionsArrive) {
    auto const sent = [](files::StatedConditions const& conditions) {
        MyMemoryBlock block;
        suite::PutConditions(block, conditions);
        return suite::TakeConditions(block);
    };
    EXPECT_FALSE(sent({}).illuminant);
    EXPECT_FALSE(sent({}).observer);
    files::StatedConditions const conditions = {kv::IllumClass(kv::IllumType::Dxx1, 55),
                                                kv::ObserverClass(kv::ObserverType::TenDegrees), "M1", "Pol",
                                                "Absolute"};
    auto const back = sent(conditions);
    EXPECT_EQ(back.illuminant, conditions.illuminant);
    EXPECT_EQ(back.observer, conditions.observer);
    EXPECT_EQ(back.measurementMode + back.filter + back.whiteBase, "M1PolAbsolute");
}

TEST(OptionsTest, ReadsTheCommandLine) {
    Options const options = ParseOptions({"-S", "-LNG", "49", "chart.csv", "--measuring-time", "20"});
    EXPECT_TRUE(options.isCalled);
    EXPECT_EQ(options.language, 49);
    EXPECT_EQ(options.file, "chart.csv");
    EXPECT_EQ(options.measuringTime.count(), 20);
    std::vector<std::pair<std::vector<std::string>, std::string>> const faults = {
        {{"-LNG"}, "-LNG: missing number"},
        {{"-LNG", "x"}, "-LNG: not a number from 0 to 999: \"x\""},
        {{"-LNG", "-1"}, "-LNG: not a number from 0 to 999: \"-1\""},
        {{"--measuring-time", "60001"}, "--measuring-time: not a number from 0 to 60000: \"60001\""},
        {{"a.csv", "b.csv"}, "unexpected argument \"b.csv\" (see HQMSERV --help)"},
        {{"-s"}, "unexpected argument \"-s\" (see HQMSERV --help)"}};
    for (auto const& [arguments, text] : faults) {
        EXPECT_EQ(files::test::FailureOf<std::invalid_argument>(
                      [&] { static_cast<void>(ParseOptions(arguments)); }),
                  text);
    }
}

}  // namespace

}  // namespace hqmserv::test
