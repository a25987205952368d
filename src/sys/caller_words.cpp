// Words the library exports for its callers to share. They are zero at load
// and nothing inside the library reads or writes them.
#include "gvutil/sys.h"

int32_t mate_sfu_index = 0;
int32_t mate_sfu_count = 0;
int32_t sleColorMarkAction = 0;
int32_t sleColorMarkType = 0;
int32_t sleColorMarkDpColor = 0;
int32_t sleColorMarkMode = 0;
int32_t sleColorMarkAwareMode = 0;
