// Looks into the windows of other programs and acts on them, for tests of the whole program. Every line of
// standard input is a request, its words parted by tabs; what it prints for that ends with a form feed. A
// window or control goes by the number that "look" gives it.

#include <windows.h>
// After <windows.h>
#include <commctrl.h>
#include <fcntl.h>
#include <io.h>
#include <shlobj.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

#include "base/wide_text.h"

namespace {

constexpr wchar_t kNameProperty[] = L"Quorvane.Name";
constexpr UINT kAnswerTime = 3000;  // milliseconds

/// In one line: "\v" stands for an end of line.
std::string OneLine(const std::wstring& text) {
  std::string result = base::Narrow(text);
  std::erase(result, '\r');
  std::ranges::replace(result, '\n', '\v');
  return result;
}

LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(window, message, wparam, lparam, SMTO_ABORTIFHUNG, kAnswerTime, &answer);
  return static_cast<LRESULT>(answer);
}

/// Does not wait for the other program, and does not reach what a text box of it holds.
std::wstring CaptionOf(HWND window) {
  std::wstring text(1024, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

/// The control's name in the code of its program, where it has one: that lies there and ends in a zero.
std::string NameOf(HWND window) {
  const auto* address = static_cast<const char*>(GetPropW(window, kNameProperty));
  if (address == nullptr) return {};
  DWORD id = 0;
  GetWindowThreadProcessId(window, &id);
  const HANDLE process = OpenProcess(PROCESS_VM_READ, FALSE, id);
  std::string text;
  char c = 0;
  while (ReadProcessMemory(process, address + text.size(), &c, 1, nullptr) && c != '\0') text += c;
  CloseHandle(process);
  return text;
}

using Visitor = std::function<void(HWND)>;

BOOL CALLBACK Visit(HWND window, LPARAM visitor) {
  if (IsWindowVisible(window)) (*reinterpret_cast<Visitor*>(visitor))(window);
  return TRUE;
}

void PrintControl(const std::string& title, HWND window) {
  const std::wstring kind = ClassOf(window);
  const std::string name = kind == L"Edit" ? NameOf(window) : OneLine(CaptionOf(window));
  const bool usable = IsWindowEnabled(window) && IsWindowEnabled(GetAncestor(window, GA_ROOT));
  std::printf("%s\t%llu\t%s\t%ld\t%d\t%d\t%s\n", title.c_str(), reinterpret_cast<ULONGLONG>(window),
              base::Narrow(kind).c_str(), GetWindowLongW(window, GWL_STYLE), usable, GetDlgCtrlID(window),
              name.c_str());
}

/// Everything that shows.
void ShowWindows(HWND, const std::wstring&) {
  Visitor windows = [](HWND window) {
    const std::string title = OneLine(CaptionOf(window));
    PrintControl(title, window);
    Visitor controls = [&](HWND control) { PrintControl(title, control); };
    EnumChildWindows(window, &Visit, reinterpret_cast<LPARAM>(&controls));
  };
  EnumWindows(&Visit, reinterpret_cast<LPARAM>(&windows));
}

void Text(HWND control, const std::wstring&) {
  std::wstring text(std::size_t{1} << 17, L'\0');
  text.resize(
      static_cast<std::size_t>(Ask(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  std::printf("%s\n", OneLine(text).c_str());
}

void Ticked(HWND box, const std::wstring&) {
  std::printf("%d\n", static_cast<int>(Ask(box, BM_GETCHECK, 0, 0)));
}

void Close(HWND window, const std::wstring&) { PostMessageW(window, WM_CLOSE, 0, 0); }

/// As the user does it, so that the program takes it for that.
void Click(HWND control, const std::wstring&) {
  RECT inside{};
  GetClientRect(control, &inside);
  const LPARAM middle = MAKELPARAM(inside.right / 2, inside.bottom / 2);
  PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  PostMessageW(control, WM_LBUTTONUP, 0, middle);
}

/// In the place of what is there.
void Type(HWND control, const std::wstring& text) {
  Ask(control, EM_SETSEL, 0, -1);
  Ask(control, WM_CHAR, VK_BACK, 0);
  for (const wchar_t c : text) Ask(control, WM_CHAR, c, 0);
}

/// Memory in the program of a window, where what messages point to has to lie.
class TheirMemory {
 public:
  explicit TheirMemory(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_ALL_ACCESS, FALSE, id);
    start_ = static_cast<char*>(
        VirtualAllocEx(process_, nullptr, kSize, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
  }
  ~TheirMemory() {
    VirtualFreeEx(process_, start_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  TheirMemory(const TheirMemory&) = delete;
  TheirMemory& operator=(const TheirMemory&) = delete;

  char* start() const { return start_; }
  void Write(const void* data, SIZE_T bytes) { WriteProcessMemory(process_, start_, data, bytes, nullptr); }
  void Read(SIZE_T from, void* data, SIZE_T bytes) {
    ReadProcessMemory(process_, start_ + from, data, bytes, nullptr);
  }

 private:
  static constexpr SIZE_T kSize = 4096;
  HANDLE process_ = nullptr;
  char* start_ = nullptr;
};

/// What is selected in the tree of a dialog.
std::wstring SelectedIn(HWND dialog) {
  HWND tree = nullptr;
  Visitor visitor = [&](HWND control) {
    if (ClassOf(control) == WC_TREEVIEWW) tree = control;
  };
  EnumChildWindows(dialog, &Visit, reinterpret_cast<LPARAM>(&visitor));
  wchar_t text[MAX_PATH] = {};
  TheirMemory memory(dialog);
  TVITEMW item{};
  item.mask = TVIF_TEXT;
  item.hItem = reinterpret_cast<HTREEITEM>(Ask(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
  item.pszText = reinterpret_cast<wchar_t*>(memory.start() + sizeof item);
  item.cchTextMax = MAX_PATH;
  memory.Write(&item, sizeof item);
  if (Ask(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.start())) != 0)
    memory.Read(sizeof item, text, sizeof text);
  return text;
}

/// Selects a folder in the shell's dialog, and prints what is selected then: the dialog reads the disk in the
/// background, and only goes as far as it has come.
void Browse(HWND dialog, const std::wstring& path) {
  TheirMemory memory(dialog);
  memory.Write(path.c_str(), (path.size() + 1) * sizeof(wchar_t));
  Ask(dialog, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(memory.start()));
  std::printf("%s\n", OneLine(SelectedIn(dialog)).c_str());
}

/// Runs a command line where nobody can see its windows, as a task without a logged-on user is run, and
/// prints its exit code; "open" when it has not started, or not ended after a minute.
void RunUnseen(HWND, const std::wstring& words) {
  std::wstring command_line = words;
  const HWINSTA seen = GetProcessWindowStation();
  const HWINSTA unseen = CreateWindowStationW(L"QvUnseen", 0, MAXIMUM_ALLOWED, nullptr);
  SetProcessWindowStation(unseen);
  CreateDesktopW(L"Default", nullptr, nullptr, 0, MAXIMUM_ALLOWED, nullptr);
  SetProcessWindowStation(seen);
  wchar_t desktop[] = L"QvUnseen\\Default";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.lpDesktop = desktop;
  PROCESS_INFORMATION process{};
  CreateProcessW(nullptr, command_line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                 &process);
  DWORD code = 0;
  const bool ended = WaitForSingleObject(process.hProcess, 60'000) == WAIT_OBJECT_0;
  if (!ended) TerminateProcess(process.hProcess, 99);
  GetExitCodeProcess(process.hProcess, &code);
  std::printf("%s\n", ended ? std::to_string(code).c_str() : "open");
}

using Command = void (*)(HWND window, const std::wstring& argument);

const std::map<std::string, Command> kCommands = {
    {"look", &ShowWindows}, {"text", &Text},     {"ticked", &Ticked}, {"click", &Click},
    {"type", &Type},        {"browse", &Browse}, {"close", &Close},   {"run unseen", &RunUnseen}};

}  // namespace

/// With words of its own it is the system's shutdown command: writes down how it is called, each call ending
/// in a zero, in the file that the environment names. Nothing is switched off.
int main(int count, char**) {
  if (count > 1) {
    std::ofstream(std::getenv("QV_SHUTDOWN_CALLS"), std::ios::binary | std::ios::app)
        << GetCommandLineA() << '\0';
    return 0;
  }
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  for (std::string line; std::getline(std::cin, line);) {
    std::istringstream words(line);
    std::string command, number, argument;
    for (std::string* word : {&command, &number, &argument}) std::getline(words, *word, '\t');
    const auto window = reinterpret_cast<HWND>(std::strtoull(number.c_str(), nullptr, 10));
    kCommands.at(command)(window, base::Widen(argument));
    std::printf("\f\n");
    std::fflush(stdout);
  }
  return 0;
}
