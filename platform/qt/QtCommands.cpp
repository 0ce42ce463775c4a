#include "platform/qt/QtCommands.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <csignal>
#include <unistd.h>
#include <utility>

namespace halyard {

namespace {

/// Made from nothing, so that no secret of this program's environment gets out.
QProcessEnvironment EnvironmentOf(const CommandLine& command) {
    QProcessEnvironment environment;
    for (const char* kept : {"PATH", "HOME", "LANG"})
        if (qEnvironmentVariableIsSet(kept)) environment.insert(kept, qEnvironmentVariable(kept));
    for (const auto& [name, value] : command.environment)
        environment.insert(QString::fromStdString(name), QString::fromStdString(value));
    // An empty one would stand for this program's own.
    if (environment.isEmpty()) environment.insert("LANG", "C");
    return environment;
}

} // namespace

QtCommands::QtCommands() {
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &limit, [this] {
        tooLong = true;
        KillGroup();
    });
}

QtCommands::~QtCommands() {
    if (!process) return;
    QObject::disconnect(process.get(), nullptr, nullptr, nullptr);
    KillGroup();
}

bool QtCommands::Run(const CommandLine& command, Done whenDone) {
    if (process || command.arguments.empty()) return false;
    done = std::move(whenDone);
    tooLong = false;
    process = std::make_unique<QProcess>();
    process->setProgram(QString::fromStdString(command.arguments.front()));
    QStringList arguments;
    for (std::size_t index = 1; index < command.arguments.size(); ++index)
        arguments.append(QString::fromStdString(command.arguments[index]));
    process->setArguments(arguments);
    process->setProcessEnvironment(EnvironmentOf(command));
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { ::setpgid(0, 0); });
    QObject::connect(process.get(), &QProcess::finished, &limit,
                     [this](int status, QProcess::ExitStatus how) {
                         KillGroup(); // whom it has left behind
                         if (tooLong) return End({-1, "it took too long"});
                         if (how == QProcess::CrashExit) return End({-1, "it was ended by a signal"});
                         End({status, {}});
                     });
    QObject::connect(process.get(), &QProcess::errorOccurred, &limit, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) End({-1, process->errorString().toLocal8Bit().toStdString()});
    });
    // Not before the call has returned, since a program that can't be started says so at once.
    limit.start(command.timeout);
    QMetaObject::invokeMethod(
        process.get(),
        [this, started = process.get()] {
            started->start();
            // Not where the process says that it has started: it may have been at work for some time by then.
            if (process.get() == started) group = started->processId();
        },
        Qt::QueuedConnection);
    return true;
}

void QtCommands::KillGroup() {
    if (group > 0) ::kill(static_cast<pid_t>(-group), SIGKILL);
}

void QtCommands::End(const CommandEnd& end) {
    limit.stop();
    group = 0;
    process.release()->deleteLater(); // this runs in a handler of its own
    if (const auto told = std::exchange(done, nullptr)) told(end);
}

} // namespace halyard
