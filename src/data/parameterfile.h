#pragma once

#include <QComboBox>
#include <QList>
#include <QObject>
#include <functional>

#include <kelp/moduleobject.h>

#include "schema/fileset.h"

namespace welmo {

/// The one way in which every form chooses, reads, shows and saves a numbered parameter file.
///
/// A form's current data object is a plain pointer: it points at the set's default node or at the
/// chosen file's local copy, both of which belong to the module's tree.
namespace parameterfile {

enum class Fetch {
    Read, ///< the controller's file was copied to the local copy
    Created, ///< the controller had no such file; it was created there from the defaults
    Failed ///< the controller could not be read, or did not take the new file; nothing changed
};

/// Reads the file named by @p combo and leaves @p data pointing at its local copy. A file that the
/// controller answers not to have is created there from the defaults; a read that failed is
/// reported and leaves @p data alone, since a file that cannot be read may well be there.
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
