#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

/// The browser of the tests is this program, too. It adds to a file what it is to show.
int main(int argc, char** argv) {
  if (const char* pages = std::getenv("SHOWN_PAGES")) {
    std::ofstream(pages, std::ios::app) << argc - 1 << ' ' << argv[1] << '\n';
    return 0;
  }
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
