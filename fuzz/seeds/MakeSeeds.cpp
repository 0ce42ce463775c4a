// Writes the seeds of the fuzz targets: what the bot receives in a practice session with commands, bans,
// rates, a pause and a migration, and the files that it writes afterwards. Usage: halyard-seeds FOLDER

#include "oscar/wire/ModOscarFunctions.h"
#include "platform/sim/SimPlatform.h"
#include "practice/Levers.h"
#include "practice/PracticeNetwork.h"
#include "practice/people/Lobby.h"
#include "practice/people/Script.h"
#include "state/EjectListFile.h"
#include "state/Permissions.h"
#include "state/SettingsWriter.h"
#include "surface/frmMain.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace halyard {

namespace {

/// A socket that writes down what it gives its reader, and passes on everything.
class RecordingSocket : public Socket {
  public:
    RecordingSocket(std::unique_ptr<Socket> inner, std::string& record, int number)
        : inner(std::move(inner)), record(record), number(number) {
        this->inner->onData = [this](std::size_t available) {
            auto handler = onData;
            if (handler) handler(available);
        };
        this->inner->onError = [this](int code, const std::string& text) {
            auto handler = onError;
            if (handler) handler(code, text);
        };
    }
    void SetTls(std::optional<TlsTerms> terms) override { inner->SetTls(std::move(terms)); }
    void Connect(const std::string& host, std::int32_t port) override { inner->Connect(host, port); }
    void Send(std::string_view bytes) override { inner->Send(bytes); }
    std::string ReadAll() override {
        auto bytes = inner->ReadAll();
        // Step 63 of the pump's target: raw bytes on a socket.
        record +=
            ByteToStr(63 * 4 + std::min(number, 3)) + WordToStr(static_cast<long long>(bytes.size())) + bytes;
        return bytes;
    }
    void Close() override { inner->Close(); }
    SocketState State() const override { return inner->State(); }
    std::string RemoteAddress() const override { return inner->RemoteAddress(); }
    void SetLowWaterMark(std::size_t bytes) override { inner->SetLowWaterMark(bytes); }

  private:
    std::unique_ptr<Socket> inner;
    std::string& record;
    int number;
};

class RecordingPlatform : public SimPlatform {
  public:
    using SimPlatform::SimPlatform;
    std::string record;
    std::unique_ptr<Socket> NewSocket() override {
        return std::make_unique<RecordingSocket>(SimPlatform::NewSocket(), record, made++);
    }

  private:
    int made = 0;
};

class Session {
  public:
    explicit Session(std::filesystem::path folder) : folder(std::move(folder)) {}

    void Run() {
        network.Start();
        std::string problem;
        if (auto script = ParseScript(LobbyScript(), problem)) network.Play(*script);
        window.Form_Load();
        auto& boxes = window.options.Controls;
        boxes.txtSN.SetText("Harbour Bot");
        boxes.txtPW.SetText("secret");
        boxes.txtChat.SetText("lobby");
        window.connection.cmdSignOn.Press();
        world.RunFor(2000);
        Keep("PumpFuzz", "sign-on");
        window.chats.cmdJoinChat.Press();
        world.RunFor(4000);
        Keep("PumpFuzz", "join");
        window.Engine().Lists().AddOp("boss", 0, FullPerms);
        window.Engine().Lists().AddAB("spam*", 0);
        window.options.AutobanLevel = 1;
        window.options.IMComsOn = true;
        people.Enter("lobby", "boss");
        for (const auto* line :
             {"ban alice", "tban carol,1", "status", "info alice", "unban alice", "kick rowdy"})
            Say(line);
        Keep("PumpFuzz", "commands");
        people.SetRate("lobby", "harbourbot", 1, RateCode::Limit);
        people.SetRate("lobby", "harbourbot", 5, RateCode::Alert);
        world.RunFor(2000);
        people.Message("boss", "harbourbot", "lobby:status");
        world.RunFor(2000);
        Keep("PumpFuzz", "rates-and-message");
        people.Pause("harbourbot");
        people.Migrate("harbourbot");
        world.RunFor(5000);
        people.Ban("lobby", "harbourbot", "harbourbot");
        people.DropFromRoom("lobby", "harbourbot");
        people.SignOff("harbourbot");
        world.RunFor(5000);
        Keep("PumpFuzz", "migration-and-end");
    }

    void WriteFiles() {
        window.Engine().Lists().AddImm("friend", 0);
        window.Engine().Lists().AddLockBan("spam*", 0);
        Write("SettingsFuzz", "own.hys", SettingsText(window.options));
        Write("SettingsFuzz", "short-name.hys",
              "a\r\nb\r\nVersion: 2.0 (Beta 1.0)\r\nop:0000110011111100000000000011:1 \r\nab:x\ry\r\n");
        WriteEjectLists(platform, window.Control(), "/program/e.txt");
        Write("EjectListFuzz", "lobby.txt", platform.disk.Contents("/program/e.txt") + "lobby:4:0:alice\r\n");
        auto before = platform.disk.Paths();
        window.stats.File.Write();
        for (const auto& path : platform.disk.Paths())
            if (path.rfind("/state", 0) == 0)
                Write("StatisticsFuzz", "counters", platform.disk.Contents(path));
        std::string foreign;
        for (const auto& line : Split(Replace(SettingsText(window.options), "\r", ""), "\n"))
            foreign += "\"" + line + "\"\r\n";
        Write("ForeignFuzz", "wrapped.txt", foreign);
        Write("CommandFuzz", "lists",
              "Bop carol,dave\nBimm al*\nBab spam*\nBaw x\nBlop carol\nBunop carol\n9\n");
        Write(
            "CommandFuzz", "enforcement",
            "Bkick some\nBban someguest\nBtban someguest,5\nBgban x\nBunban someguest\n9\nBstatus\nBhelp\n");
        Write("CommandFuzz", "settings",
              "Bbl all\nBbp 2.5\nBcb on\nBsc 12\nBicq off\nBuinfo x\nBrejoin\n!lobby:status\nEd*mn\nFjoe "
              "rolled 6\n");
        Write("MessageFuzz", "engine", "1lobby:status\n1:ban x\n");
        Write("MessageFuzz", "wire",
              ByteToStr(0) + std::string(8, 'c') + WordToStr(1) + MakeTLV("", 1, "boss") +
                  HexToStr("00000000") +
                  MakeTLV("0002", 2,
                          HexToStr("050100010101010013") + HexToStr("00000000") + "1:status with text"));
    }

  private:
    void Say(const std::string& text) {
        people.Say("lobby", "boss", text);
        world.RunFor(3000);
    }
    void Keep(const char* target, const std::string& name) {
        Write(target, name, std::exchange(platform.record, {}));
    }
    void Write(const char* target, const std::string& name, const std::string& bytes) {
        std::filesystem::create_directories(folder / target);
        std::ofstream(folder / target / name, std::ios::binary) << bytes;
    }

    std::filesystem::path folder;
    SimWorld world{1};
    SimPlatform service{world};
    RecordingPlatform platform{world};
    PracticeNetwork network{service, {}};
    PracticeLevers& people = network.Levers();
    frmMain window{platform};
};

} // namespace

} // namespace halyard

int main(int count, char** words) {
    if (count != 2) return std::cerr << "usage: halyard-seeds FOLDER\n", 2;
    halyard::Session session(words[1]);
    session.Run();
    session.WriteFiles();
}
