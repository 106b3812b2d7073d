// Runs a fuzz target over every file of a folder: fuzz_NAME_corpus FOLDER. A broken property
// aborts.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
    return 2;
  }
  int count = 0;
  std::error_code failed;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1], failed)) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string input((std::istreambuf_iterator<char>(file)), {});
    std::printf("%s\n", entry.path().filename().string().c_str());
    std::fflush(stdout);  // the last name is the culprit's
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    ++count;
  }
  if (count == 0) std::fprintf(stderr, "There is nothing in %s\n", argv[1]);
  return count == 0 ? 1 : 0;
}
