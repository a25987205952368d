// OID ordering of the SNMP sub-agent library.
#include "gvsim/gvsim.h"

int snmp_oid_compare(const oid *a, size_t a_length, const oid *b, size_t b_length) {
    const size_t common = a_length < b_length ? a_length : b_length;
    for (size_t i = 0; i < common; ++i) {
        if (a[i] != b[i]) {
            return a[i] < b[i] ? -1 : 1;
        }
    }
    if (a_length == b_length) {
        return 0;
    }
    return a_length < b_length ? -1 : 1;
}
