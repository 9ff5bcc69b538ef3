#include "AssetFolder.h"

#include <system_error>

namespace viewer {

std::string findAssets(const std::filesystem::path &program) {
    const std::filesystem::path installed = (program.parent_path() / ASSETS_BESIDE_PROGRAM).lexically_normal();
    std::error_code ignored;
    return std::filesystem::is_directory(installed, ignored) ? installed.string() : ASSETS_OF_SOURCES;
}

std::string findAssets() {
    std::error_code unknown;
    return findAssets(std::filesystem::read_symlink("/proc/self/exe", unknown));
}

} // namespace viewer
