#include "Expected.h"

#include "TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace TestSupport {

namespace fs = std::filesystem;

bool WritesExpected() { return std::getenv("TESSELOR_WRITE_EXPECTED") != nullptr; }

fs::path ExpectedFile(const std::string& name, const std::source_location& test) {
  const fs::path directory =
      fs::path(TESSELOR_SOURCE_DIR) / "tests" / fs::path(test.file_name()).parent_path().filename() / "expected";
  if (WritesExpected()) fs::create_directories(directory);
  return directory / name;
}

void ExpectText(const std::string& name, const std::string& actual, const std::source_location& test) {
  const fs::path file = ExpectedFile(name + ".txt", test);
  if (WritesExpected()) {
    std::ofstream(file, std::ios::binary) << actual;
    return;
  }
  const std::string expected = TemporaryDirectory::Read(file);
  if (actual == expected) return;
  const std::string output = std::string(TESSELOR_TEST_OUTPUT_DIR) + "/" + name + ".actual.txt";
  std::ofstream(output, std::ios::binary) << actual;
  EXPECT_EQ(actual, expected) << output << " differs from " << file.string();
}

} // namespace TestSupport
