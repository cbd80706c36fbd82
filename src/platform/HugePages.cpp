#include "platform/HugePages.h"

#include <sys/prctl.h>

namespace Tesselor {

void UseSmallPages() { prctl(PR_SET_THP_DISABLE, 1, 0, 0, 0); }

} // namespace Tesselor
