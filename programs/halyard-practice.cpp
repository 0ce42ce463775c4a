// The practice network as a program: a service on this machine that the bot, and any other client, can sign
// on to.

#include "base/Latin1.h"
#include "platform/qt/QtPlatform.h"
#include "practice/PracticeNetwork.h"
#include "practice/people/Lobby.h"
#include "practice/people/Script.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::size_t largestScript = 1 << 20;

/// A signal handler may do next to nothing: it writes one byte here, and the loop reads it.
int signalPair[2];

void OnSignal(int) {
    char byte = 1;
    [[maybe_unused]] auto written = write(signalPair[0], &byte, 1);
}

/// Ends the loop on SIGINT and SIGTERM.
bool QuitOnSignals(QCoreApplication& application) {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalPair) != 0) return false;
    auto notifier = new QSocketNotifier(signalPair[1], QSocketNotifier::Read, &application);
    QObject::connect(notifier, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    struct sigaction action = {};
    action.sa_handler = OnSignal;
    return sigaction(SIGINT, &action, nullptr) == 0 && sigaction(SIGTERM, &action, nullptr) == 0;
}

/// For the screen: control characters of what strangers wrote become dots, the five that Windows-1252 leaves
/// unassigned among them, since a terminal takes those for commands.
std::string Printable(std::string text) {
    for (auto& c : text)
        if (static_cast<unsigned char>(c) < 32 ||
            std::string_view("\x7F\x81\x8D\x8F\x90\x9D").find(c) != std::string_view::npos)
            c = '.';
    return halyard::ToUtf8(text);
}

void Print(const halyard::PracticeEvent& event) {
    auto time = QDateTime::currentDateTime().toString("HH:mm:ss").toStdString();
    auto room = event.room.empty() ? std::string("-") : Printable(event.room);
    std::printf("%s  %-12s  %s %s\n", time.c_str(), room.c_str(), Printable(event.who).c_str(),
                Printable(event.what).c_str());
    std::fflush(stdout);
}

int Fail(const std::string& why) {
    std::fprintf(stderr, "halyard-practice: %s\n", why.c_str());
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("halyard-practice");
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "A practice network on 127.0.0.1. Sign on with any screenname and any password, and join\n"
        "the room \"lobby\", whose people come, go, talk and misbehave. Who joins it first owns it.\n"
        "Prints what happens: time, room, who, what. Ends with Ctrl+C.");
    parser.addHelpOption();
    QCommandLineOption port("port", "Listen on this port instead of 5190; 0 takes any free one.", "N",
                            "5190");
    QCommandLineOption script("script", "Play the people of this file instead of the lobby.", "FILE");
    QCommandLineOption quiet("quiet", "Print nothing of what happens.");
    QCommandLineOption management(
        "management", "Open a management interface (HTTP) on 127.0.0.1 at this port; 0 takes any free one.",
        "N");
    parser.addOptions({port, script, quiet, management});
    parser.process(application);

    halyard::QtPlatform platform;
    halyard::PracticeOptions options;
    bool isNumber = false;
    options.port = parser.value(port).toInt(&isNumber);
    if (!isNumber || options.port < 0 || options.port > 65535)
        return Fail("the port must be from 0 to 65535");
    if (parser.isSet(management)) {
        options.management = parser.value(management).toInt(&isNumber);
        if (!isNumber || options.management < 0 || options.management > 65535)
            return Fail("the management's port must be from 0 to 65535");
    }
    options.startedAt = QDateTime::currentSecsSinceEpoch() - platform.Milliseconds() / 1000;

    std::string text(halyard::LobbyScript());
    if (parser.isSet(script)) {
        auto path = parser.value(script).toStdString();
        auto read = platform.FileSystem().Read(path, largestScript);
        if (!read) return Fail("cannot read " + path);
        text = halyard::FromUtf8(*read);
    }
    std::string problem;
    auto parsed = halyard::ParseScript(text, problem);
    if (!parsed) return Fail("the script, " + halyard::ToUtf8(problem));

    halyard::PracticeNetwork network(platform, options);
    if (!parser.isSet(quiet)) network.onEvent = Print;
    if (!QuitOnSignals(application)) return Fail("cannot watch for signals");
    if (!network.Start()) return Fail("port " + parser.value(port).toStdString() + " is taken");
    std::printf("The practice network is on %s:%d\n", options.address.c_str(), network.Port());
    if (network.ManagementPort() != 0)
        std::printf("Its management is on 127.0.0.1:%d\n", network.ManagementPort());
    std::fflush(stdout);
    network.Play(*parsed);
    return QCoreApplication::exec();
}
