#include "platform/qt/QtHttp.h"

#include "platform/qt/QtHttpExchange.h"

#include <QNetworkProxy>

#include <utility>

namespace halyard {

QtHttp::QtHttp(QObject* parent) : network(new QNetworkAccessManager(parent)) {
    network->setProxy(QNetworkProxy::NoProxy);
}

QtHttp::~QtHttp() {
    for (const auto& exchange : exchanges)
        if (exchange) exchange->Leave();
}

void QtHttp::Ask(const HttpRequest& request, Done done) {
    std::erase_if(exchanges, [](const auto& exchange) { return exchange.isNull(); });
    exchanges.emplace_back(new QtHttpExchange(*network.get(), request, std::move(done)));
}

} // namespace halyard
