#pragma once

#include <string>

namespace VKTMax {

// The configuration file of the exporter: the options as 54 bytes, little-endian and
// packed, behind a version word. No message is shown or logged when it can't be used.

// The file in the host's folder for plug-in configurations.
std::string ExportConfigPath();

// Reads the file into the store. False, and nothing changed, when it can't be opened; a
// file older than version 4 changes nothing and is no error.
//
// Options that came after the file's version keep their values. A file that is too short
// for its version is not an error either: what is missing of it reads as -1, so that a
// missing flag is true.
bool ReadExportConfig(std::string path);

// Replaces the file by the store, at the current version. False when it can't be opened.
bool WriteExportConfig(std::string path);

}  // namespace VKTMax
