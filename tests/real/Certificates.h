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
    explicit Authority(const char* name) : certificate(Make(name, "", "critical,CA:TRUE", -1, 1, *key)) {}

    QSslCertificate Certificate() const { return QSslCertificate(Der(*certificate), QSsl::Der); }
    /// A server's part of TLS: a certificate made out to `holder` ("DNS:localhost", "IP:127.0.0.1"), valid
    /// from `from` until `to`, in days from now.
    QSslConfiguration Issue(const std::string& holder, int from = -1, int to = 1) const {
        const Key own(EVP_EC_gen("P-256"));
        const auto leaf = Make("A Test Server", holder, "CA:FALSE", from, to, *own);
        QByteArray bytes(i2d_PrivateKey(own.get(), nullptr), '\0');
        auto* at = reinterpret_cast<unsigned char*>(bytes.data());
        i2d_PrivateKey(own.get(), &at);
        auto configuration = QSslConfiguration::defaultConfiguration();
        configuration.setLocalCertificate(QSslCertificate(Der(*leaf), QSsl::Der));
        configuration.setPrivateKey(QSslKey(bytes, QSsl::Ec, QSsl::Der));
        return configuration;
    }

  private:
    struct Free {
        void operator()(EVP_PKEY* it) const { EVP_PKEY_free(it); }
        void operator()(X509* it) const { X509_free(it); }
        void operator()(X509_EXTENSION* it) const { X509_EXTENSION_free(it); }
    };
    using Key = std::unique_ptr<EVP_PKEY, Free>;
    using Paper = std::unique_ptr<X509, Free>;

    static QByteArray Der(X509& paper) {
        QByteArray bytes(i2d_X509(&paper, nullptr), '\0');
        auto* at = reinterpret_cast<unsigned char*>(bytes.data());
        i2d_X509(&paper, &at);
        return bytes;
    }
    static void Extend(X509& paper, int kind, const std::string& value) {
        const std::unique_ptr<X509_EXTENSION, Free> extension(
            X509V3_EXT_conf_nid(nullptr, nullptr, kind, value.c_str()));
        X509_add_ext(&paper, extension.get(), -1);
    }
    Paper Make(const char* name, const std::string& holder, const char* authority, int from, int to,
               EVP_PKEY& own) const {
        constexpr long day = 86400; // s
        Paper paper(X509_new());
        X509_set_version(paper.get(), X509_VERSION_3);
        ASN1_INTEGER_set(X509_get_serialNumber(paper.get()), certificate ? 2 : 1);
        X509_gmtime_adj(X509_getm_notBefore(paper.get()), from * day);
        X509_gmtime_adj(X509_getm_notAfter(paper.get()), to * day);
        X509_NAME_add_entry_by_txt(X509_get_subject_name(paper.get()), "CN", MBSTRING_ASC,
                                   reinterpret_cast<const unsigned char*>(name), -1, -1, 0);
        X509_set_issuer_name(paper.get(),
                             X509_get_subject_name(certificate ? certificate.get() : paper.get()));
        X509_set_pubkey(paper.get(), &own);
        Extend(*paper, NID_basic_constraints, authority);
        if (!holder.empty()) Extend(*paper, NID_subject_alt_name, holder);
        X509_sign(paper.get(), key.get(), EVP_sha256());
        return paper;
    }

    Key key{EVP_EC_gen("P-256")};
    Paper certificate;
};

} // namespace halyard
