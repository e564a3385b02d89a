// Looks into the windows of another program and acts on them, for tests of the whole program. A call finds
// its window anew and ends; it prints to standard output, lines ending in LF, and exits with 1 when it does
// not find what it is asked for.
//
// TITLE is a window's whole title; of several the one in front is meant. CONTROL is the name of a control in
// the program's code, such as cmdQuit, or the number of one in a dialog of the system.

#include <windows.h>
// After <windows.h>
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr wchar_t kNameProperty[] = L"Quorvane.Name";
constexpr UINT kAnswerTime = 3000;  // milliseconds
constexpr DWORD kLookAgain = 50;    // milliseconds

using Arguments = std::vector<std::wstring>;

std::string Utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string result(text.size() * 3, '\0');
  result.resize(static_cast<std::size_t>(WideCharToMultiByte(
      CP_UTF8, 0, text.c_str(), length, result.data(), static_cast<int>(result.size()), nullptr, nullptr)));
  return result;
}

void Print(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

/// GetWindowText() does not reach text boxes of another program.
std::wstring TextOf(HWND window) {
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, kAnswerTime, &length);
  std::wstring text(length + 1, L'\0');
  DWORD_PTR got = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()),
                      SMTO_ABORTIFHUNG, kAnswerTime, &got);
  text.resize(got);
  return text;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

/// A text that lies in the program of a window; it ends in a zero.
std::string ReadText(HWND window, const char* address) {
  DWORD id = 0;
  GetWindowThreadProcessId(window, &id);
  const HANDLE process = OpenProcess(PROCESS_VM_READ, FALSE, id);
  std::string text;
  char c = 0;
  while (ReadProcessMemory(process, address + text.size(), &c, 1, nullptr) && c != '\0') text += c;
  CloseHandle(process);
  return text;
}

std::string NameOf(HWND window) {
  const auto* address = static_cast<const char*>(GetPropW(window, kNameProperty));
  return address == nullptr ? "" : ReadText(window, address);
}

using Visitor = std::function<bool(HWND)>;

BOOL CALLBACK Visit(HWND window, LPARAM visitor) { return (*reinterpret_cast<Visitor*>(visitor))(window); }

HWND FindTop(const std::wstring& title) {
  HWND found = nullptr;
  Visitor visitor = [&](HWND window) {
    if (IsWindowVisible(window) && TextOf(window) == title) found = window;
    return found == nullptr;
  };
  EnumWindows(&Visit, reinterpret_cast<LPARAM>(&visitor));
  return found;
}

HWND FindControl(HWND window, const std::wstring& wanted) {
  const int number = _wtoi(wanted.c_str());
  const std::string name = Utf8(wanted);
  HWND found = nullptr;
  Visitor visitor = [&](HWND child) {
    if (number != 0 ? GetDlgCtrlID(child) == number : NameOf(child) == name) found = child;
    return found == nullptr;
  };
  EnumChildWindows(window, &Visit, reinterpret_cast<LPARAM>(&visitor));
  return found;
}

/// Ends the program when there is no such window or control.
HWND Top(const Arguments& arguments) {
  const HWND window = FindTop(arguments.at(0));
  if (window == nullptr) std::exit(1);
  return window;
}

HWND Control(const Arguments& arguments) {
  const HWND control = FindControl(Top(arguments), arguments.at(1));
  if (control == nullptr) std::exit(1);
  return control;
}

std::string OneLine(const std::wstring& text) {
  std::string result;
  for (const char c : Utf8(text)) {
    if (c == '\r') {
      result += "\\r";
    } else if (c == '\n') {
      result += "\\n";
    } else {
      result += c;
    }
  }
  return result;
}

void PrintWindow(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  GUITHREADINFO focus{};
  focus.cbSize = sizeof focus;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &focus);
  std::printf("name=%s id=%d class=%s visible=%d enabled=%d focus=%d rect=%ld,%ld,%ld,%ld text=%s\n",
              NameOf(window).c_str(), GetDlgCtrlID(window), Utf8(ClassOf(window)).c_str(),
              IsWindowVisible(window), IsWindowEnabled(window), focus.hwndFocus == window, place.left,
              place.top, place.right - place.left, place.bottom - place.top, OneLine(TextOf(window)).c_str());
}

void List(const Arguments& arguments) {
  const HWND window = Top(arguments);
  PrintWindow(window);
  Visitor visitor = [](HWND child) {
    PrintWindow(child);
    return true;
  };
  EnumChildWindows(window, &Visit, reinterpret_cast<LPARAM>(&visitor));
}

void Windows(const Arguments&) {
  Visitor visitor = [](HWND window) {
    if (IsWindowVisible(window)) PrintWindow(window);
    return true;
  };
  EnumWindows(&Visit, reinterpret_cast<LPARAM>(&visitor));
}

/// TITLE SECONDS: until the window is there, or no longer there.
void WaitUntil(const Arguments& arguments, bool there) {
  const ULONGLONG end = GetTickCount64() + 1000 * std::stoull(arguments.at(1));
  while ((FindTop(arguments.at(0)) != nullptr) != there) {
    if (GetTickCount64() > end) std::exit(1);
    Sleep(kLookAgain);
  }
}

/// As the user does it, so that the program takes it for that.
void Click(const Arguments& arguments) {
  const HWND control = Control(arguments);
  RECT inside{};
  GetClientRect(control, &inside);
  const LPARAM middle = MAKELPARAM(inside.right / 2, inside.bottom / 2);
  PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  PostMessageW(control, WM_LBUTTONUP, 0, middle);
}

/// TITLE CONTROL TEXT: in the place of what is there.
void Type(const Arguments& arguments) {
  const HWND control = Control(arguments);
  SendMessageW(control, EM_SETSEL, 0, -1);
  SendMessageW(control, WM_CHAR, VK_BACK, 0);
  for (const wchar_t c : arguments.at(2)) SendMessageW(control, WM_CHAR, c, 0);
}

/// TITLE CONTROL NUMBER, from 0: with the arrow keys.
void Choose(const Arguments& arguments) {
  const HWND list = Control(arguments);
  const auto key = [list](WPARAM code) {
    PostMessageW(list, WM_KEYDOWN, code, 1);
    PostMessageW(list, WM_KEYUP, code, static_cast<LPARAM>(0xC0000001));
  };
  key(VK_HOME);
  for (int i = std::stoi(arguments.at(2)); i > 0; --i) key(VK_DOWN);
}

void Items(const Arguments& arguments) {
  const HWND list = Control(arguments);
  const LRESULT count = SendMessageW(list, CB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    std::wstring text(
        static_cast<std::size_t>(SendMessageW(list, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0)), L'\0');
    SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
    Print(Utf8(text) + "\n");
  }
}

void Number(LRESULT number) { Print(std::to_string(number) + "\n"); }

/// TITLE PATH: selects the folder in the shell's dialog. The text of such a message has to lie in the
/// dialog's own program.
void Browse(const Arguments& arguments) {
  const HWND dialog = Top(arguments);
  DWORD id = 0;
  GetWindowThreadProcessId(dialog, &id);
  const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, id);
  const SIZE_T bytes = (arguments.at(1).size() + 1) * sizeof(wchar_t);
  void* const there = VirtualAllocEx(process, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  WriteProcessMemory(process, there, arguments.at(1).c_str(), bytes, nullptr);
  SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(there));
  VirtualFreeEx(process, there, 0, MEM_RELEASE);
  CloseHandle(process);
}

void State(const Arguments& arguments) {
  const HWND window = Top(arguments);
  std::printf("minimised=%d foreground=%d enabled=%d\n", IsIconic(window), GetForegroundWindow() == window,
              IsWindowEnabled(window));
}

struct Command {
  std::size_t arguments;
  void (*run)(const Arguments&);
};

const std::map<std::wstring, Command> kCommands = {
    {L"windows", {0, &Windows}},
    {L"wait", {2, [](const Arguments& a) { WaitUntil(a, true); }}},
    {L"gone", {2, [](const Arguments& a) { WaitUntil(a, false); }}},
    {L"list", {1, &List}},
    {L"text", {2, [](const Arguments& a) { Print(Utf8(TextOf(Control(a)))); }}},
    {L"click", {2, &Click}},
    {L"type", {3, &Type}},
    {L"choose", {3, &Choose}},
    {L"items", {2, &Items}},
    {L"checked", {2, [](const Arguments& a) { Number(SendMessageW(Control(a), BM_GETCHECK, 0, 0)); }}},
    {L"selected", {2, [](const Arguments& a) { Number(SendMessageW(Control(a), CB_GETCURSEL, 0, 0)); }}},
    {L"browse", {2, &Browse}},
    {L"state", {1, &State}},
    {L"minimise", {1, [](const Arguments& a) { PostMessageW(Top(a), WM_SYSCOMMAND, SC_MINIMIZE, 0); }}},
    {L"close", {1, [](const Arguments& a) { PostMessageW(Top(a), WM_CLOSE, 0, 0); }}},
};

}  // namespace

int main() {
  _setmode(_fileno(stdout), _O_BINARY);
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  const Arguments arguments(words + std::min(count, 2), words + count);
  const auto command = count > 1 ? kCommands.find(words[1]) : kCommands.end();
  if (command == kCommands.end() || command->second.arguments != arguments.size()) {
    std::fputs("Usage: winctl COMMAND [TITLE [CONTROL]] [ARGUMENT]. The commands:", stderr);
    for (const auto& [name, unused] : kCommands) std::fprintf(stderr, " %s", Utf8(name).c_str());
    std::fputs("\n", stderr);
    return 2;
  }
  command->second.run(arguments);
  return 0;
}
