#pragma once

#include <QCoreApplication>
#include <QString>
#include <memory>

struct ssl_ctx_st;
struct x509_store_ctx_st;

namespace welmo::links {

struct BrokerAddress;

/// The encryption of a connection: it accepts a broker only with a certificate that is valid now,
/// for this host, and signed by a trusted authority, without exception.
class TlsContext
{
    Q_DECLARE_TR_FUNCTIONS(welmo::links::TlsContext)
public:
    /// @p problem gets one line if the trusted certificates cannot be read.
    TlsContext(const BrokerAddress &address, QString *problem);
    TlsContext(const TlsContext &) = delete;
    TlsContext &operator=(const TlsContext &) = delete;

    ssl_ctx_st *handle() const { return m_handle.get(); }
    /// Why the last certificate was refused; empty if it was accepted.
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
