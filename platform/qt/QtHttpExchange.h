#pragma once

// One request over Qt and its answer. It deletes itself when it has told what came of it, or was left.

#include "platform/Http.h"

#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

#include <string>

class QNetworkAccessManager;

namespace halyard {

class QtHttpExchange : public QObject {
  public:
    QtHttpExchange(QNetworkAccessManager& network, const HttpRequest& request, Http::Done done);
    ~QtHttpExchange() override { Drop(); }

    /// Drops the request; the handler runs no more.
    void Leave();

  private:
    void Start(QNetworkAccessManager& network, const HttpRequest& request);
    void Read();
    void Ended();
    void Finish(const HttpAnswer& answer);
    void Drop();

    Http::Done done;
    QPointer<QNetworkReply> reply;
    QTimer deadline;
    std::string body;
};

} // namespace halyard
