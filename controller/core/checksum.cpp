#include "controller/core/checksum.h"

namespace welmo::controller {

namespace {

// FNV-1a with 64 bits: short and quick, and each byte affects all later steps.
class Sum
{
public:
    void add(unsigned char byte) { m_state = (m_state ^ byte) * 0x100000001b3U; }
    /// @p end is not a byte of UTF-8, so that different lists of texts are never summed as the same
    /// bytes.
    void add(const QByteArray &text, unsigned char end)
    {
        for (const char byte : text)
            add(static_cast<unsigned char>(byte));
        add(end);
    }
    qint64 value() const { return static_cast<qint64>(m_state); }

private:
    quint64 m_state = 0xcbf29ce484222325U;
};

} // namespace

qint64 checksum(const QByteArray &path, const QByteArray &key, const QByteArray &value,
                qint64 revision)
{
    Sum sum;
    sum.add(path, 0xff);
    sum.add(key, 0xff);
    sum.add(QByteArray::number(revision), 0xff);
    sum.add(value, value.isNull() ? 0xfe : 0xff);
    return sum.value();
}

} // namespace welmo::controller
