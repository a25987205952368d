// The operator's console: lines read through the command shell's line
// reader (GNU readline on a host).
#pragma once

namespace gv::os {

// One line typed after prompt, without its newline, from the heap; null at
// the end of input. Give it back with free_line.
char *read_line(const char *prompt) noexcept;
void free_line(char *line) noexcept;

} // namespace gv::os
