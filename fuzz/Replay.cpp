// Runs a fuzz target over every file of a folder once, so that what fuzzing has found stays found without libFuzzer.
// Usage: PROGRAM CORPUS_FOLDER. An empty or missing folder is a failure: a replay of nothing proves nothing.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

void replay(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // A buffer of exactly the input's size, so that a sanitizer sees a read past its end.
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_FOLDER\n", argv[0]);
        return 2;
    }
    std::error_code error;
    std::filesystem::path current;
    unsigned count = 0;
    try {
        for (const auto &entry : std::filesystem::directory_iterator(argv[1], error)) {
            if (!entry.is_regular_file())
                continue;
            current = entry.path();
            replay(current);
            ++count;
        }
    } catch (const std::exception &exception) {
        std::fprintf(stderr, "%s: %s\n", current.c_str(), exception.what());
        return 1;
    }
    if (count == 0) {
        std::fprintf(stderr, "%s: no inputs to replay\n", argv[1]);
        return 1;
    }
    std::printf("%u inputs replayed\n", count);
    return 0;
}
