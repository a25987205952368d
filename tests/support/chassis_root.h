// A private chassis root for one test: generated from a description into a
// temporary directory, GVUTIL_ROOT pointed at it and the model record loaded.
#pragma once

#include "chassis_desc.h"

#include <string>
#include <string_view>
#include <vector>

namespace gvtest {

// Descriptions shipped with the simulation, by name ("test3", "k7400", ...).
gvsim::ChassisDesc shipped_chassis(std::string_view name);
std::vector<std::string> shipped_chassis_names();

// One slot of two GE ports and no interlink ports: the logical slot's pnums
// (3 on) lie below its capacity of 14, where channel groups print as "CG%d".
gvsim::ChassisDesc two_port_chassis(int channel_groups);

class ChassisRoot {
  public:
    explicit ChassisRoot(std::string_view shipped_name);
    explicit ChassisRoot(const gvsim::ChassisDesc &desc);
    ~ChassisRoot();
    ChassisRoot(const ChassisRoot &) = delete;
    ChassisRoot &operator=(const ChassisRoot &) = delete;

    const std::string &path() const { return path_; }
    const gvsim::ChassisDesc &desc() const { return desc_; }

    // Replaces a file of the root (path relative to it, e.g. "proc/shape/ioctrl").
    void write_file(std::string_view relative, std::string_view bytes) const;
    // The same, executable: a responder of a control entry or a program of
    // the root's bin/ ("#!/bin/sh\n...").
    void write_program(std::string_view relative, std::string_view script) const;

  private:
    gvsim::ChassisDesc desc_;
    std::string path_;
};

// Forgets the loaded model record, as in a process that has not loaded it.
void unload_model();

} // namespace gvtest
