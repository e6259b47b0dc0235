#include "link/mqtt/tlscontext.h"

#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include "link/mqtt/brokeraddress.h"

namespace welmo::links {

void TlsContext::Closer::operator()(ssl_ctx_st *handle) const
{
    SSL_CTX_free(handle);
}

TlsContext::TlsContext(const BrokerAddress &address, QString *problem)
    : m_handle(SSL_CTX_new(TLS_client_method()))
{
    SSL_CTX_set_min_proto_version(handle(), TLS1_2_VERSION);
    SSL_CTX_set_app_data(handle(), this);
    SSL_CTX_set_verify(handle(), SSL_VERIFY_PEER, &TlsContext::check);
    const QByteArray host = address.host.toUtf8();
    X509_VERIFY_PARAM *wanted = SSL_CTX_get0_param(handle());
    if (X509_VERIFY_PARAM_set1_ip_asc(wanted, host.constData()) == 0)
        X509_VERIFY_PARAM_set1_host(wanted, host.constData(), size_t(host.size()));
    const int read = address.caFile.isEmpty()
        ? SSL_CTX_set_default_verify_paths(handle())
        : SSL_CTX_load_verify_locations(handle(), address.caFile.toLocal8Bit().constData(),
                                        nullptr);
    if (read == 0)
        *problem = tr("%1: no certificates to trust").arg(address.caFile);
}

int TlsContext::check(int good, X509_STORE_CTX *certificate)
{
    const auto *connection = static_cast<const SSL *>(
        X509_STORE_CTX_get_ex_data(certificate, SSL_get_ex_data_X509_STORE_CTX_idx()));
    auto *self = static_cast<TlsContext *>(SSL_CTX_get_app_data(SSL_get_SSL_CTX(connection)));
    if (good == 0)
        self->m_error = X509_STORE_CTX_get_error(certificate);
    return good;
}

QString TlsContext::refusal() const
{
    switch (m_error) {
    case X509_V_OK:
        return {};
    case X509_V_ERR_CERT_HAS_EXPIRED:
        return tr("the broker's certificate has expired");
    case X509_V_ERR_HOSTNAME_MISMATCH:
    case X509_V_ERR_IP_ADDRESS_MISMATCH:
        return tr("the broker's certificate is for another host");
    case X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT:
    case X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN:
    case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY:
    case X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE:
        return tr("the broker's certificate is signed by nobody who is trusted");
    default:
        return tr("the broker's certificate is refused: %1")
            .arg(QString::fromUtf8(X509_verify_cert_error_string(m_error)));
    }
}

} // namespace welmo::links
