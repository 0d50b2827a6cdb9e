// The main program of a fuzz target where libFuzzer is not linked: every file of the given folders,
// and the same mutations of each on every run.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr int mutationsPerFile = 2000;

/// One to eight small damages: bytes changed, taken out, doubled, or brought from elsewhere.
Bytes mutated(Bytes bytes, std::minstd_rand& random) {
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    for (std::size_t damages = 1 + below(8); damages > 0 && !bytes.empty(); --damages) {
        const auto at = bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size()));
        const auto length =
            1 + below(std::min<std::size_t>(16, static_cast<std::size_t>(bytes.end() - at)));
        const auto end = at + static_cast<std::ptrdiff_t>(length);
        switch (below(4)) {
        case 0:
            *at = static_cast<std::uint8_t>(random());
            break;
        case 1:
            bytes.erase(at, end);
            break;
        case 2: {
            const Bytes copy(at, end);
            bytes.insert(at, copy.begin(), copy.end());
            break;
        }
        default:
            std::swap(*at, bytes[below(bytes.size())]);
        }
    }
    return bytes;
}

} // namespace

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const Bytes bytes(std::istreambuf_iterator<char>(file), {});
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            std::minstd_rand random(1);
            for (int mutation = 0; mutation < mutationsPerFile; ++mutation) {
                const Bytes input = mutated(bytes, random);
                LLVMFuzzerTestOneInput(input.data(), input.size());
            }
            ++files;
        }
    }
    std::printf("%d files\n", files);
    return files > 0 ? 0 : 1;
}
