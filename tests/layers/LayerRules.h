#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace layers {

/// What cmake/layers.txt says, and the check of a source tree against it.
class LayerRules {
public:
    /// Reads the rules; raises std::runtime_error when the file cannot be read or a line is none of the known forms.
    explicit LayerRules(const std::filesystem::path &file);

    /// Checks every source below `libs`. Each offence is one line "file:line: reason", the file as seen from `libs`; no
    /// offence, no lines. The lines come in the order of the files' names.
    std::vector<std::string> checkIncludes(const std::filesystem::path &libs) const;

    /// Compares the files below `libs` with what the build knows: every header outside a folder detail/ belongs into
    /// `publicHeaders`, every source and every other header into `sources`. All paths are relative to `libs`.
    static std::vector<std::string> checkFiles(const std::filesystem::path &libs,
                                               const std::vector<std::string> &publicHeaders,
                                               const std::vector<std::string> &sources);

    /// Checks that a library's header for everything includes each of its public headers.
    static std::vector<std::string> checkWholeHeader(const std::filesystem::path &libs, const std::string &header,
                                                     const std::vector<std::string> &publicHeaders);

private:
    struct Include {
        unsigned int line;
        bool quoted;      ///< "…" instead of <…>
        std::string name; ///< for an include through a macro, the macro's name
    };

    static std::vector<Include> readIncludes(const std::filesystem::path &file);
    std::string checkInclude(const std::string &file, const Include &include, const std::filesystem::path &libs) const;
    std::string checkQuoted(const std::string &file, const std::string &name, const std::filesystem::path &libs) const;
    std::string checkAngled(const std::string &file, const std::string &name) const;
    bool allowsThirdParty(const std::string &file, const std::string &name) const;

    std::map<std::string, std::vector<std::string>> mBelow;      ///< library: the libraries below it
    std::map<std::string, std::vector<std::string>> mThirdParty; ///< folder: headers or folders of headers
};

} // namespace layers
