#pragma once

#include <memory>
#include <vector>

#include "pando/bmodule.h"

namespace pando {

/// Creates modules through bfactory() and drives them and their sub-modules through the life cycle.
class ModuleFramework
{
public:
    ModuleFramework() = default;
    ~ModuleFramework();
    ModuleFramework(const ModuleFramework &) = delete;
    ModuleFramework &operator=(const ModuleFramework &) = delete;

    /// Creates the module registered under @p key; false when there is none, or its creator gives
    /// none.
    bool create(const QString &key);
    /// init and setup of every module, then render of all, then idle of all; a module that has been
    /// through them is left alone.
    void start();
    /// beforeDetach of all, detach of all, then destruction, last created first.
    void stop();

    QList<BModule *> modules() const;

private:
    std::vector<std::unique_ptr<BModule>> m_modules;
};

} // namespace pando
