#include "platform/qt/QtHttpExchange.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>

#include <utility>

namespace halyard {

namespace {

QByteArray BytesOf(const std::string& text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

QNetworkRequest PlainRequest(const HttpRequest& request) {
    QNetworkRequest made(QUrl::fromEncoded(BytesOf(request.url), QUrl::StrictMode));
    made.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    made.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    made.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    made.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    made.setRawHeader("User-Agent", "Halyard");
    made.setRawHeader("Accept-Language", "*");        // not the operator's
    made.setRawHeader("Accept-Encoding", "identity"); // packed, a small answer could grow without bound
    for (const auto& [name, value] : request.headers) made.setRawHeader(BytesOf(name), BytesOf(value));
    return made;
}

} // namespace

QtHttpExchange::QtHttpExchange(QNetworkAccessManager& network, const HttpRequest& request, Http::Done done)
    : QObject(&network), done(std::move(done)) {
    deadline.setSingleShot(true);
    auto problem = ProblemOf(request);
    QObject::connect(&deadline, &QTimer::timeout, this, [this, problem] {
        Finish({0, {}, problem.empty() ? "no answer in time" : problem});
    });
    if (problem.empty()) Start(network, request);
    deadline.start(problem.empty() ? request.timeout : 0);
}

void QtHttpExchange::Leave() {
    done = nullptr;
    Drop();
    deleteLater();
}

void QtHttpExchange::Start(QNetworkAccessManager& network, const HttpRequest& request) {
    reply = network.sendCustomRequest(PlainRequest(request), BytesOf(request.method), BytesOf(request.body));
    reply->setReadBufferSize(static_cast<qint64>(Http::LargestAnswer) + 1);
    QObject::connect(reply, &QNetworkReply::readyRead, this, [this] { Read(); });
    QObject::connect(reply, &QNetworkReply::finished, this, [this] { Ended(); });
}

void QtHttpExchange::Read() {
    body += reply->readAll().toStdString();
    if (body.size() > Http::LargestAnswer) Finish({0, {}, "the answer is too long"});
}

void QtHttpExchange::Ended() {
    Read();
    if (!done) return;
    // Numbers below 200 are those of connections and proxies; what the service itself says is an answer.
    const auto status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool broken = reply->error() > 0 && reply->error() < 200;
    if (status == 0 || broken) return Finish({0, {}, reply->errorString().toStdString()});
    Finish({status, body, {}});
}

void QtHttpExchange::Finish(const HttpAnswer& answer) {
    const auto handler = std::exchange(done, nullptr);
    const auto told = answer;
    Drop();
    deleteLater();
    if (handler) handler(told);
}

void QtHttpExchange::Drop() {
    deadline.stop();
    if (!reply) return;
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
    reply = nullptr;
}

} // namespace halyard
