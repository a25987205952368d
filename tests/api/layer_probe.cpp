// Compiled against one layer's include path by the layer tests.
#include "cli/value_list.h"
#include "gvutil/cli.h"
