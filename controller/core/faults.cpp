#include "controller/core/faults.h"

namespace welmo::controller {

void Faults::set(Fault fault, bool on)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (on)
            m_on.insert(static_cast<int>(fault));
        else
            m_on.remove(static_cast<int>(fault));
    }
    emit changed();
}

bool Faults::isOn(Fault fault) const
{
    const QMutexLocker lock(&m_mutex);
    return m_on.contains(static_cast<int>(fault));
}

void Faults::setCode(const QString &path, int code, int times)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (code == 0 || times == 0)
            m_codes.remove(path);
        else
            m_codes.insert(path, {code, times});
    }
    emit changed();
}

int Faults::takeCode(const QString &path)
{
    const QMutexLocker lock(&m_mutex);
    const auto forced = m_codes.find(path);
    if (forced == m_codes.end())
        return 0;
    const int code = forced->code;
    if (forced->left != untilCleared && --forced->left == 0)
        m_codes.erase(forced);
    return code;
}

void Faults::setDelay(int milliseconds)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_delay = milliseconds;
    }
    emit changed();
}

int Faults::delay() const
{
    const QMutexLocker lock(&m_mutex);
    return m_delay;
}

void Faults::loseAnswers(int count)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_losses = count;
    }
    emit changed();
}

bool Faults::takeLoss()
{
    const QMutexLocker lock(&m_mutex);
    if (m_losses == 0)
        return false;
    --m_losses;
    return true;
}

void Faults::clear()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_on.clear();
        m_codes.clear();
        m_delay = 0;
        m_losses = 0;
    }
    emit changed();
}

} // namespace welmo::controller
