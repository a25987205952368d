// gvsim-mkroot DESC_FILE OUT_DIR: builds the chassis root that a description describes.
#include "chassis_desc.h"

#include <cstdio>
#include <string>

int main(int argc, char **argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: gvsim-mkroot DESC_FILE OUT_DIR\n");
        return 2;
    }
    gvsim::ChassisDesc desc;
    std::string error;
    if (!gvsim::load_chassis_file(argv[1], desc, error) ||
        !gvsim::write_root(desc, argv[2], error)) {
        std::fprintf(stderr, "gvsim-mkroot: %s\n", error.c_str());
        return 1;
    }
    return 0;
}
