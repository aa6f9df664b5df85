// Runs the fuzz target once on every file of the given corpus folders,
// without libFuzzer, so that an ordinary build checks the seed corpus:
//   tessaro_model_fuzz_corpus FOLDER...
// The target aborts on an input that breaks its checks; this program fails
// too when a folder holds no input at all.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: tessaro_model_fuzz_corpus FOLDER...\n", stderr);
        return 1;
    }
    for (int i = 1; i < argc; ++i) {
        std::error_code error;
        std::vector<std::filesystem::path> inputs;
        for (const auto& entry : std::filesystem::directory_iterator(argv[i], error))
            if (entry.is_regular_file())
                inputs.push_back(entry.path());
        if (error || inputs.empty()) {
            std::fprintf(stderr, "no inputs in %s\n", argv[i]);
            return 1;
        }
        std::sort(inputs.begin(), inputs.end());
        for (const auto& path : inputs) {
            std::ifstream in(path, std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        }
        std::printf("%zu inputs of %s passed\n", inputs.size(), argv[i]);
    }
    return 0;
}
