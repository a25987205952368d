// The zeroed heap buffer a few list parsers copy the operator's whole list
// into (the slot and VLAN lists, whose lists run to thousands of characters),
// so the list never lands on the shell's stack. It lives for one call and is
// freed on every return by going out of scope.
#pragma once

#include <cstddef>
#include <string_view>

namespace gv::sys {

// The size the shell's list parsers work in: a list is read up to its
// 10,239th character.
inline constexpr std::size_t kListBufferSize = 10240;

class WorkBuffer {
  public:
    // Zeroed memory from the heap; when there is none the buffer is empty
    // and ok() is false, and the caller gives up quietly.
    explicit WorkBuffer(std::size_t size = kListBufferSize) noexcept;
    ~WorkBuffer();
    WorkBuffer(const WorkBuffer &) = delete;
    WorkBuffer &operator=(const WorkBuffer &) = delete;

    bool ok() const noexcept { return data_ != nullptr; }
    char *data() noexcept { return data_; }
    std::size_t size() const noexcept { return size_; }

    // Copies C text in as strncpy would, cut to leave the last byte a
    // terminator; answers the copy.
    std::string_view copy(const char *text) noexcept;

  private:
    char *data_;
    std::size_t size_;
};

} // namespace gv::sys
