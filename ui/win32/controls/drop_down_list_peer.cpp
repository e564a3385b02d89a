#include "ui/win32/controls/drop_down_list_peer.h"

#include <commctrl.h>

#include <algorithm>

#include "ui/win32/drawing/paint.h"
#include "ui/win32/drawing/scale.h"
#include "ui/win32/wide_text.h"

namespace ui::win32 {
namespace {

constexpr WindowKind kList{WC_COMBOBOXW, WS_CHILD | WS_TABSTOP | WS_VSCROLL | WS_CLIPSIBLINGS |
                                             CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS};
constexpr int kEntriesInView = 12;
constexpr Twips kIndent = 60;
constexpr WPARAM kClosedPart = static_cast<WPARAM>(-1);

/// Posted to itself: the user has chosen, with TRUE by keys on the closed list. A handler may wait for the
/// user, with the list closed by then.
constexpr UINT kChosen = WM_APP;

}  // namespace

DropDownListPeer::DropDownListPeer(DropDownList& list, Toolkit& toolkit)
    : LateFocusPeer(list, toolkit, kList), list_(list) {
  HandleChoice();
  // The system would leave the text at the top of the closed part.
  window().OnNotice(WM_DRAWITEM, 0, [this](const Message& message) -> Answer {
    Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(message.lparam));
    return TRUE;
  });
  window().On(WM_PAINT, [this](const Message& message) -> Answer {
    const LRESULT result = window().Default(message);
    RECT closed{};
    GetClientRect(handle(), &closed);
    const HDC context = GetDC(handle());
    DrawBoxBorder(context, closed, list_, handle(), Line::kClear);
    ReleaseDC(handle(), context);
    return result;
  });
  // Over a closed list the wheel would change the choice unnoticed.
  window().On(WM_MOUSEWHEEL, [this](const Message& message) -> Answer {
    if (IsDropped() || GetFocus() == handle()) return std::nullopt;
    return SendMessageW(GetParent(handle()), message.id, message.wparam, message.lparam);
  });
  window().On(WM_CTLCOLORLISTBOX, [this](const Message& message) -> Answer {
    const std::optional<Colours> colours = ColoursToDraw();
    if (!colours) return std::nullopt;
    return reinterpret_cast<LRESULT>(UseColours(reinterpret_cast<HDC>(message.wparam), *colours));
  });
}

/// In an open list the keys only move the mark; the choice follows when the list closes.
void DropDownListPeer::HandleChoice() {
  window().OnNotice(WM_COMMAND, CBN_SELENDOK, [this](const Message&) -> Answer {
    PostMessageW(handle(), kChosen, IsDropped() ? FALSE : TRUE, 0);
    return 0;
  });
  window().OnNotice(WM_COMMAND, CBN_SELENDCANCEL, [this](const Message&) -> Answer {
    MirrorValue();
    return 0;
  });
  window().OnNotice(WM_COMMAND, CBN_SELCHANGE, [this](const Message&) -> Answer {
    if (!IsDropped()) PostMessageW(handle(), kChosen, TRUE, 0);
    return 0;
  });
  window().OnNotice(WM_COMMAND, CBN_CLOSEUP, [this](const Message&) -> Answer {
    ReportFocusSoon();
    return 0;
  });
  window().On(kChosen, [this](const Message& message) -> Answer {
    const int chosen = Selected();
    ReportFocus();  // a message that this brings up would take the choice back
    const bool passing = message.wparam != FALSE;
    const bool told_before = passing && chosen == list_.list_index();
    using Choice = DropDownList::Choice;
    if (!told_before) list_.UserSelected(chosen, passing ? Choice::kPassing : Choice::kFinished);
    return 0;
  });
}

void DropDownListPeer::MirrorItems() {
  window().Send(CB_RESETCONTENT);
  for (const std::string& item : list_.items()) {
    window().Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(item).c_str()));
  }
}

void DropDownListPeer::MirrorValue() {
  if (Selected() != list_.list_index()) {
    window().Send(CB_SETCURSEL, static_cast<WPARAM>(static_cast<INT_PTR>(list_.list_index())));
  }
}

/// The height of the window itself is that of the list when it is open; the closed part follows from the
/// height of its text, which it surrounds with a border that only a try shows.
void DropDownListPeer::MirrorBounds() {
  const RECT place = Place();
  const auto entry = static_cast<int>(window().Send(CB_GETITEMHEIGHT, 0));
  SetWindowPos(handle(), nullptr, place.left, place.top, Width(place), Height(place) + kEntriesInView * entry,
               SWP_NOZORDER | SWP_NOACTIVATE);
  const int height = Height(place);
  window().Send(CB_SETITEMHEIGHT, kClosedPart, height);
  RECT closed{};
  GetWindowRect(handle(), &closed);
  window().Send(CB_SETITEMHEIGHT, kClosedPart, std::max(2 * height - Height(closed), 1));
}

void DropDownListPeer::MirrorFont() {
  WindowPeer::MirrorFont();
  window().Send(CB_SETITEMHEIGHT, 0, MeasureText(L"M", font()).cy + ToPixels(kIndent, dpi()));
  MirrorBounds();
}

void DropDownListPeer::Draw(const DRAWITEMSTRUCT& entry) const {
  const bool marked = (entry.itemState & ODS_SELECTED) != 0;
  const bool enabled = IsWindowEnabled(handle()) != 0;
  const std::optional<Colours> own = enabled ? ColoursToDraw() : std::nullopt;
  HBRUSH behind = own ? UseColours(entry.hDC, *own)
                      : UseColours(entry.hDC, GetSysColor(enabled ? COLOR_WINDOW : COLOR_BTNFACE),
                                   GetSysColor(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
  if (marked) behind = UseColours(entry.hDC, GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT));
  FillRect(entry.hDC, &entry.rcItem, behind);
  if (entry.itemID < list_.items().size()) {
    RECT place = entry.rcItem;
    place.left += ToPixels(kIndent, dpi());
    DrawTextW(entry.hDC, ToWide(list_.items()[entry.itemID]).c_str(), -1, &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  }
  if ((entry.itemState & ODS_FOCUS) != 0) DrawFocusRect(entry.hDC, &entry.rcItem);
}

std::optional<Colours> DropDownListPeer::ColoursToDraw() const { return OwnColours(list_); }

}  // namespace ui::win32
