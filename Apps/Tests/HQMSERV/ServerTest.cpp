// HQMSERV as its clients see it: the real program, and a post office in this one.
#include "Apps/Tests/HQMSERV/Desktop.h"
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

ServerClient::Settings NotAlone() {
    ServerClient::Settings settings;
    settings.isAlone = false;
    return settings;
}

class ServerTest : public testing::Test {
  protected:
    MyMemoryBlock Ask(int message, MyMemoryBlock data = MyMemoryBlock()) {
        MyMemoryBlock answer;
        EXPECT_EQ(Office().SendAndReceive(0, message, data, answer, kv::DisEnable::Nothing), 1);
        return answer;
    }
    /// The status of the answer and its first field, a long; -1 where there is none.
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
    ServerProgram server({Chart});
    {
        ServerClient client(NotAlone());
        suite::DeviceIdentity const device = client.Identify();
        EXPECT_EQ(device.name + '/' + device.serialNumber + '/' + device.softwareVersion,
                  "Replay/R-24/0.1.0");
        EXPECT_EQ(device.type, suite::DeviceType::Spectrophotometer);
        EXPECT_TRUE(client.IsReady());

        using Status = ServerStatus;
        EXPECT_EQ(AskLong(kv::SPECTRUM_REQUEST).first, Status::NothingMeasured);
        EXPECT_EQ(AskLong(kv::EXEC_MEASUREMENT).first, Status::WhiteMissing);
        EXPECT_EQ(client.Display(), "white measurement, please");
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

TEST_F(ServerTest, SpeaksItsClientsLanguage) {
    ServerProgram server({"-LNG", "1", Chart});
    ServerClient client(NotAlone());
    EXPECT_EQ(client.Display(), "white measurement, please");
    MyMemoryBlock german;
    german << static_cast<unsigned char>(3) << static_cast<short>(49);
    Ask(kv::CONNECT, german);
    EXPECT_EQ(client.Display(), "bitte Weiß messen");
}

/// What a listener is told.
struct Listener {
    std::vector<long> told;
    long TriggeredHdl(kv::KORVELEvent* event) {
        long number = -1;
        MyMemoryBlock data = event->GetData();
        data >> number;
        told.push_back(number);
        return 0;
    }
};

TEST_F(ServerTest, TellsOfTheTriggerWhoeverWantsToKnow) {
    ServerProgram server({Chart});
    Listener listener;
    Office().ChangeMessageHdl(kv::MESSUNG_AUSGELOEST, sv::Link::To<&Listener::TriggeredHdl>(listener), 1);
    ServerClient client(NotAlone());
    client.MeasureWhite();
    auto const press = [this] { return AskLong(kv::MESSUNG_AUSGELOEST).second; };
    EXPECT_EQ(press(), 1);
    Ask(kv::NOTIFY_MESSUNG);
    Ask(kv::NOTIFY_MESSUNG);  // once is enough
    EXPECT_EQ(press(), 2);
    EXPECT_EQ(press(), 3);
    Ask(kv::NOTIFY_MESSUNG_AUS);
    EXPECT_EQ(press(), 4);
    EXPECT_TRUE(client.IsReady());  // all that was sent before has come in by now
    EXPECT_EQ(listener.told, (std::vector<long>{2, 3}));
}

TEST_F(ServerTest, AnswersQuestionsDuringAMeasurement) {
    ServerProgram server({Chart, "--measuring-time", "2000"});
    ServerClient client(NotAlone());
    EXPECT_TRUE(client.IsReady());
    sv::String target(0);
    sv::String message(int{kv::EXEC_WHITE_MEASUREMENT});
    MyMemoryBlock nothing;
    ASSERT_EQ(Office().Send(target, message, nothing), 1);
    EXPECT_FALSE(client.IsReady());
    MyMemoryBlock request = Ask(kv::NEW_MEASURE_REQUEST);  // waits for its end
    EXPECT_TRUE(client.IsReady());
}

TEST_F(ServerTest, ADeadClientLeavesNothingBehind) {
    if (tests::IsUnderWine()) GTEST_SKIP() << "Wine tells nobody of a program's death";
    ServerProgram server({Chart, "--measuring-time", "500"});
    auto client = std::make_unique<ServerClient>(NotAlone());
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
        ASSERT_TRUE(waitUntilRefused(true)) << "it has locked the server";
    }
    EXPECT_TRUE(waitUntilRefused(false));

    Program last(KV_COLOR, {"measure"});
    ASSERT_TRUE(waitUntilRefused(true));
    client.reset();
    last.Kill();
    EXPECT_TRUE(server.Ends());
}

TEST(PayloadTest, APatchArrivesToTheLastBit) {
    suite::MeasuredPatch patch{70'000, "Grün ½", kv::Spectrum()};
    float const values[] = {0.0F, -0.0F, 1.0F, 0.1F, 1e-38F, 3.4e38F};
    for (int k = 0; k < kv::SpectralPoints; ++k) patch.spectrum[k] = values[k % 6];
    MyMemoryBlock block;
    block << patch;
    kv::PostOffice::Encode(block);
    MyMemoryBlock const sent = block;
    kv::PostOffice::Decode(block);
    auto const back = suite::TakePatch(block);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->number, patch.number);
    EXPECT_EQ(back->name, patch.name);
    for (int k = 0; k < kv::SpectralPoints; ++k) {
        EXPECT_EQ(std::signbit(back->spectrum[k]), std::signbit(patch.spectrum[k]));
        EXPECT_EQ(back->spectrum[k], patch.spectrum[k]);
    }

    MyMemoryBlock plain;
    plain << patch;
    for (long length = 0; length < plain.Len(); ++length) {
        MyMemoryBlock cut;
        cut.Put(plain.GetDatenZeiger(), length);
        EXPECT_FALSE(suite::TakePatch(cut)) << length;
    }
}

TEST(PayloadTest, ConditionsArrive) {
    using suite::operator<<;
    files::StatedConditions conditions;
    auto const back = [&conditions] {
        MyMemoryBlock block;
        block << conditions;
        return suite::TakeConditions(block);
    };
    EXPECT_FALSE(back().illuminant);
    EXPECT_FALSE(back().observer);
    conditions = {kv::IllumClass(kv::IllumType::Dxx1, 55), kv::ObserverClass(kv::ObserverType::TenDegrees),
                  "M1", "Pol", "Absolute"};
    EXPECT_EQ(back().illuminant, conditions.illuminant);
    EXPECT_EQ(back().observer, conditions.observer);
    EXPECT_EQ(back().measurementMode + back().filter + back().whiteBase, "M1PolAbsolute");
}

}  // namespace

}  // namespace hqmserv::test
