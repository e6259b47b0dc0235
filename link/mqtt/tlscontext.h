#pragma once

#include <QCoreApplication>
#include <QString>
#include <memory>

struct ssl_ctx_st;
struct x509_store_ctx_st;

namespace welmo::links {

struct BrokerAddress;

/// What a connection is encrypted with: it takes a broker only with a certificate that is valid
/// now, for this host, and signed by somebody who is trusted; there is no way around it.
class TlsContext
{
    Q_DECLARE_TR_FUNCTIONS(welmo::links::TlsContext)
public:
    /// One line in @p problem when what is trusted cannot be read.
    TlsContext(const BrokerAddress &address, QString *problem);
    TlsContext(const TlsContext &) = delete;
    TlsContext &operator=(const TlsContext &) = delete;

    ssl_ctx_st *handle() const { return m_handle.get(); }
    /// Why the last certificate was refused; empty when it was not.
    QString refusal() const;

private:
    struct Closer
    {
        void operator()(ssl_ctx_st *handle) const;
    };
    static int check(int good, x509_store_ctx_st *certificate);

    std::unique_ptr<ssl_ctx_st, Closer> m_handle;
    int m_error = 0;
};

} // namespace welmo::links
