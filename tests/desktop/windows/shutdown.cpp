// Stands where Windows has its shutdown command, for tests: writes down how it is called, each call ending in
// a zero, in the file that the environment names. Nothing is switched off.

#include <windows.h>

#include <cstdio>
#include <cstdlib>

int main() {
  std::FILE* file = std::fopen(std::getenv("QV_SHUTDOWN_CALLS"), "ab");
  if (file == nullptr) return 1;
  std::fputs(GetCommandLineA(), file);
  std::fputc('\0', file);
  return std::fclose(file);
}
