#include "kelp/habits.h"

namespace kelp {

Habits &habits()
{
    static Habits ofThisHost;
    return ofThisHost;
}

} // namespace kelp
