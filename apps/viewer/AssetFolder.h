#pragma once

#include <filesystem>
#include <string>

namespace viewer {

/// The folder of the ready templates, sheets and images: the one that was installed with the program, or else that of
/// the sources that it was built from.
std::string findAssets();

/// The same for a program that lies there.
std::string findAssets(const std::filesystem::path &program);

} // namespace viewer
