// Feeds the files of a corpus to a fuzz target, so that every test run holds what fuzzing found.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void Feed(const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

/// Each file whole, and broken off at some places.
void Replay(const std::filesystem::path& path) {
    constexpr std::size_t kPieces = 50;
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    for (std::size_t piece = 0; piece <= kPieces; ++piece)
        Feed(bytes.substr(0, bytes.size() * piece / kPieces));
}

} // namespace

int main(int count, char** arguments) {
    int files = 0;
    for (int i = 1; i < count; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            Replay(entry.path());
            ++files;
        }
    }
    std::printf("%d files\n", files);
    return files > 0 ? 0 : 1; // a corpus that was lost would test nothing
}
