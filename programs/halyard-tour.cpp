// The tour as a program: it ends by itself, with status 0 when everything happened that should.

#include "platform/qt/NoBoxes.h"
#include "platform/qt/QtPlatform.h"
#include "tour/Tour.h"
#include "tour/TourBoxes.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTimer>

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("halyard-tour");
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Shows the bot at work in a room of the practice network, which must be running\n"
        "with the tour's scene. Takes under two minutes.");
    parser.addHelpOption();
    QCommandLineOption port("port", "The practice network's port.", "N", "5190");
    QCommandLineOption settings("settings", "The settings file to load.", "FILE",
                                QCoreApplication::applicationDirPath() + "/tour/Tour.hys");
    QCommandLineOption ejects("ejects", "Where to save the eject list.", "FILE",
                              QCoreApplication::applicationDirPath() + "/tour/EjectLists.txt");
    parser.addOptions({port, settings, ejects});
    parser.process(application);

    auto boxes = std::make_unique<halyard::TourBoxes>(parser.value(settings).toStdString(),
                                                      parser.value(ejects).toStdString());
    halyard::QtPlatform platform(std::move(boxes), std::make_unique<halyard::NoDesktop>());
    halyard::Tour tour(platform, parser.value(port).toInt());
    tour.onFinished = [&application](int status) {
        // The sign-off goes out in the turn of the loop that is under way.
        QTimer::singleShot(0, &application, [status] { QCoreApplication::exit(status); });
    };
    return QCoreApplication::exec();
}
