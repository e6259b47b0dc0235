#pragma once

namespace bench {

class Bench;

/// The rows that fill a form with a file's values and store them again.
void fillAndStore(Bench &bench);

} // namespace bench
