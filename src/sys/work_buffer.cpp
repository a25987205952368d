#include "sys/work_buffer.h"

#include "os/os.h"

#include <cstring>

namespace gv::sys {

WorkBuffer::WorkBuffer(std::size_t size) noexcept
    : data_(static_cast<char *>(os::heap_alloc_zeroed(size))), size_(data_ != nullptr ? size : 0) {}

WorkBuffer::~WorkBuffer() {
    os::heap_free(data_);
}

std::string_view WorkBuffer::copy(const char *text) noexcept {
    if (size_ == 0 || text == nullptr) {
        return {};
    }
    std::strncpy(data_, text, size_ - 1);
    return {data_, std::strlen(data_)};
}

} // namespace gv::sys
