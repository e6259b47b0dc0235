#pragma once

#include "controller/core/database.h"

/// The tables of a store, and the way from the ones of earlier versions to today's.
namespace welmo::controller::storeformat {

constexpr int applicationId = 0x776C6D6F; // "wlmo"
constexpr int version = 2;

// What a store says about itself, by name; see Database::about().
constexpr char identityName[] = "identity"; ///< another one for each store that was ever made
constexpr char openName[] = "open"; ///< "1" while a controller has it
constexpr char sumName[] = "sum"; ///< of the checksums of all entries, to notice a lost one

/// Makes the tables of an empty database.
bool create(Database &database);
/// Brings the tables of version @p from up to date; all or nothing.
bool migrate(Database &database, qint64 from);
/// A name that no store had before.
QString newIdentity();

} // namespace welmo::controller::storeformat
