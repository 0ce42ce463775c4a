#pragma once

// HTTP over Qt Network. It asks for nothing that it wasn't told to: no proxy, cookie, cache or redirect.

#include "platform/Http.h"
#include "platform/qt/Kept.h"

#include <QNetworkAccessManager>
#include <QPointer>

#include <vector>

namespace halyard {

class QtHttpExchange;

class QtHttp : public Http {
  public:
    /// `parent` ends what is under way when no loop runs any more.
    explicit QtHttp(QObject* parent);
    ~QtHttp() override;

    void Ask(const HttpRequest& request, Done done) override;

  private:
    Kept<QNetworkAccessManager> network;
    std::vector<QPointer<QtHttpExchange>> exchanges;
};

} // namespace halyard
