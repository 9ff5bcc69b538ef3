#pragma once

#include "WatchedFileSystem.h"

#include <memory>
#include <string>
#include <vector>

namespace nurel::ui::css {
class CSS;
}

namespace viewer {

/// The sheets of the command line, which together are one sheet: of two equally specific rules the one of the later
/// sheet counts, wherever and whenever each was saved.
class StyleSheets {
public:
    explicit StyleSheets(std::vector<std::string> paths);

    bool isEmpty() const { return mPaths.empty(); }

    /// The folders that the sheets lie in, in order: where their images are.
    std::vector<std::string> getFolders() const;

    /// Reads all of them anew. Raises a `core::Exception` that names the file, "FILE:LINE:COLUMN: reason" where it is
    /// the text that is at fault.
    std::unique_ptr<nurel::ui::css::CSS> load();

    /// The sheets that have been written since they were last loaded or told here. See
    /// `WatchedFileSystem::takeChanged`.
    std::vector<std::string> takeChanged(WatchedFileSystem::Time now) { return mFiles.takeChanged(now); }

private:
    std::vector<std::string> mPaths;
    WatchedFileSystem mFiles;
};

/// A fault in the text of a file as a compiler tells it: the place, which the reason ends in, in front.
std::string describeFault(const std::string &file, const std::string &reason);

} // namespace viewer
