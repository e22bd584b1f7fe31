// Whole documents compared with files under tests/golden. KVO_WRITE_GOLDEN=1 writes them anew for a person to
// look through.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace kvo::test {

inline void expectGolden(const std::string& name, const std::string& bytes) {
  const auto path = std::string(KVO_GOLDEN) + "/" + name;
  if (std::getenv("KVO_WRITE_GOLDEN") != nullptr) {
    std::ofstream(path, std::ios::binary) << bytes;
    return;
  }
  std::ifstream file(path, std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  const auto expected = text.str();
  const auto at = static_cast<std::size_t>(
      std::mismatch(bytes.begin(), bytes.end(), expected.begin(), expected.end()).first - bytes.begin());
  EXPECT_TRUE(bytes == expected) << name << " differs from byte " << at << ": \"" << bytes.substr(at, 80)
                                 << "\" instead of \"" << expected.substr(std::min(at, expected.size()), 80)
                                 << "\"";
}

/// What the test that runs has written down, under golden/SUITE.
inline void expectGoldenLog(const std::string& log) {
  const auto* test = testing::UnitTest::GetInstance()->current_test_info();
  expectGolden(std::string(test->test_suite_name()) + "/" + test->name() + ".txt", log);
}

}  // namespace kvo::test
