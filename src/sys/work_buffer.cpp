#include "sys/work_buffer.h"

#include <cstdlib>
#include <cstring>

namespace gv::sys {

WorkBuffer::WorkBuffer(std::size_t size) noexcept
    : data_(static_cast<char *>(std::calloc(size, 1))), size_(data_ != nullptr ? size : 0) {}

WorkBuffer::~WorkBuffer() {
    std::free(data_);
}

std::string_view WorkBuffer::copy(const char *text) noexcept {
    if (size_ == 0 || text == nullptr) {
        return {};
    }
    std::strncpy(data_, text, size_ - 1);
    return {data_, std::strlen(data_)};
}

} // namespace gv::sys
