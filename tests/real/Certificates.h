#pragma once

// An authority that exists for one test, and the certificates that it issues.

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

#include <memory>
#include <openssl/evp.h>
#include <openssl/x509v3.h>
#include <string>

namespace halyard {

class Authority {
  public:
    explicit Authority(const char* name) : own(Make(name, NID_basic_constraints, "CA:TRUE", -1, 1, *key)) {}

    QSslCertificate Certificate() const { return QSslCertificate(Der<i2d_X509>(*own), QSsl::Der); }
    /// A server's part of TLS: a certificate made out to `holder` ("DNS:localhost", "IP:127.0.0.1"), valid
    /// from `from` until `to`, in days from now.
    QSslConfiguration Issue(const char* holder, int from = -1, int to = 1) const {
        const Key leafKey(EVP_EC_gen("P-256"));
        const auto leaf = Make("A Test Server", NID_subject_alt_name, holder, from, to, *leafKey);
        auto server = QSslConfiguration::defaultConfiguration();
        server.setLocalCertificate(QSslCertificate(Der<i2d_X509>(*leaf), QSsl::Der));
        server.setPrivateKey(QSslKey(Der<i2d_PrivateKey>(*leafKey), QSsl::Ec, QSsl::Der));
        return server;
    }

  private:
    struct Free {
        void operator()(EVP_PKEY* it) const { EVP_PKEY_free(it); }
        void operator()(X509* it) const { X509_free(it); }
        void operator()(X509_EXTENSION* it) const { X509_EXTENSION_free(it); }
    };
    using Key = std::unique_ptr<EVP_PKEY, Free>;
    using Paper = std::unique_ptr<X509, Free>;

    template <auto write, typename Thing>
    static QByteArray Der(Thing& thing) {
        QByteArray bytes(write(&thing, nullptr), '\0');
        auto* at = reinterpret_cast<unsigned char*>(bytes.data());
        write(&thing, &at);
        return bytes;
    }
    Paper Make(const char* name, int kind, const char* value, int from, int to, EVP_PKEY& holders) const {
        Paper paper(X509_new());
        X509_set_version(paper.get(), X509_VERSION_3);
        ASN1_INTEGER_set(X509_get_serialNumber(paper.get()), own ? 2 : 1);
        X509_gmtime_adj(X509_getm_notBefore(paper.get()), from * 86400L); // s
        X509_gmtime_adj(X509_getm_notAfter(paper.get()), to * 86400L);
        X509_NAME_add_entry_by_txt(X509_get_subject_name(paper.get()), "CN", MBSTRING_ASC,
                                   reinterpret_cast<const unsigned char*>(name), -1, -1, 0);
        X509_set_issuer_name(paper.get(), X509_get_subject_name(own ? own.get() : paper.get()));
        X509_set_pubkey(paper.get(), &holders);
        const std::unique_ptr<X509_EXTENSION, Free> extension(
            X509V3_EXT_conf_nid(nullptr, nullptr, kind, value));
        X509_add_ext(paper.get(), extension.get(), -1);
        X509_sign(paper.get(), key.get(), EVP_sha256());
        return paper;
    }

    Key key{EVP_EC_gen("P-256")};
    Paper own;
};

/// While it stands, this process trusts one authority instead of the machine's.
class Trust {
  public:
    explicit Trust(const Authority& authority) {
        auto trusting = before;
        trusting.setCaCertificates({authority.Certificate()});
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    Trust(const Trust&) = delete;
    Trust& operator=(const Trust&) = delete;
    ~Trust() { QSslConfiguration::setDefaultConfiguration(before); }

  private:
    QSslConfiguration before = QSslConfiguration::defaultConfiguration();
};

} // namespace halyard
