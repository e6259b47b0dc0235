#pragma once

#include "controller/core/database.h"

/// The tables of a store, and how those of earlier versions are brought up to date.
namespace welmo::controller::storeformat {

constexpr int applicationId = 0x776C6D6F; // "wlmo"
constexpr int version = 2;

// The names of the values that describe a store; see Database::about().
constexpr char identityName[] = "identity"; ///< another one for each store that was ever made
constexpr char openName[] = "open"; ///< "1" while a controller has it
constexpr char sumName[] = "sum"; ///< of the checksums of all entries, to notice a lost one

/// Creates the tables in an empty database.
bool create(Database &database);
/// Updates the tables of version @p from, completely or not at all.
bool migrate(Database &database, qint64 from);
/// A name that no other store has.
QString newIdentity();

} // namespace welmo::controller::storeformat
