#include <gvutil/gvutil.h>

int main(void) {
    return get_real_slot_by_user_slot(0) == 3 ? 0 : 1;
}
