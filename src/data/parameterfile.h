#pragma once

#include <QComboBox>
#include <QList>
#include <QObject>
#include <functional>

#include <kelp/moduleobject.h>

#include "schema/fileset.h"

namespace welmo {

/// How every form chooses, reads, shows and saves a numbered parameter file.
///
/// A form's current data object is a plain pointer to the set's default node or to the chosen
/// file's local copy; the module's tree owns both.
namespace parameterfile {

enum class Fetch {
    Read, ///< the controller's file was copied to the local copy
    Created, ///< the controller had no such file; it was created there from the defaults
    Failed ///< the controller could not be read, or did not take the new file; nothing changed
};

/// Reads the file that @p combo names and leaves @p data pointing at its local copy. A file that
/// the controller does not have is created there from the defaults. A failed read is reported and
/// leaves @p data alone, since the file may exist.
Fetch handleGetParam(QObject *sender, const schema::FileSet &set, const QComboBox *combo,
                     kelp::ModuleObject *&data, const std::function<void()> &useDefault);

/// Stores the form into @p data and writes it to the controller as the file named by @p combo.
/// Returns the controller's code, 0 for success. @p data may be the copy of any file.
int handleSaveParam(QObject *sender, const schema::FileSet &set, const QComboBox *combo,
                    kelp::ModuleObject *data, const std::function<void()> &store);

/// Reads the chosen file and shows it; a failed read leaves the form as it is.
void handleFileNumChanged(QObject *sender, const QComboBox *combo, kelp::ModuleObject *&data,
                          const schema::FileSet &set, const std::function<void()> &useDefault,
                          const std::function<void()> &setForm);

/// Removes the files with these numbers from the controller and reports the outcome.
void handleRemoveParam(QObject *sender, const schema::FileSet &set, const QList<int> &numbers);

/// The set's default node, made when missing.
kelp::ModuleObject *defaultNode(const schema::FileSet &set);

} // namespace parameterfile

} // namespace welmo
