#include "tessa/tlmanager.h"

namespace tessa {

TlManager *TlManager::getTlManager()
{
    static TlManager manager;
    return &manager;
}

} // namespace tessa
