// Every test runs as a desktop host does: under the locale of its surroundings, which must change nothing.
#include <gmock/gmock.h>

#include <clocale>
#include <cstdlib>
#include <iostream>
#include <locale>
#include <string>

namespace {

// The global locale of C++ follows that of C. The Windows run-time library of C++ knows none but "C".
void TakeSurroundingLocale() {
  std::setlocale(LC_ALL, "");
  try {
    std::locale::global(std::locale(""));
  } catch (const std::runtime_error&) {
  }
}

// QEL_TEST_LOCALE holds a part of the name that must be in force, so that a run under a locale that is not
// there fails instead of passing for nothing.
bool LocaleIsTheOneAskedFor() {
  const char* wanted = std::getenv("QEL_TEST_LOCALE");
  const char* current = std::setlocale(LC_ALL, nullptr);
  return wanted == nullptr || std::string(current).find(wanted) != std::string::npos;
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  TakeSurroundingLocale();
  if (!LocaleIsTheOneAskedFor()) {
    std::cerr << "the locale in force is " << std::setlocale(LC_ALL, nullptr) << "\n";
    return 2;
  }
  return RUN_ALL_TESTS();
}
