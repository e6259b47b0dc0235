#pragma once

#include <memory>
#include <vector>

#include "pando/bmodule.h"

namespace pando {

/// Creates modules through bfactory() and takes them and their sub-modules through the life cycle.
class ModuleFramework
{
public:
    ModuleFramework() = default;
    ~ModuleFramework();
    ModuleFramework(const ModuleFramework &) = delete;
    ModuleFramework &operator=(const ModuleFramework &) = delete;

    /// Creates the module registered under @p key; false if there is none, or its creator returns
    /// null.
    bool create(const QString &key);
    /// Runs init and setup of every module, then render of all, then idle of all; modules that have
    /// been through them are skipped.
    void start();
    /// Runs beforeDetach of all, detach of all, then destroys them, last created first.
    void stop();

    QList<BModule *> modules() const;

private:
    std::vector<std::unique_ptr<BModule>> m_modules{};
};

} // namespace pando
