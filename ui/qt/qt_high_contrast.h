#pragma once

namespace ui::qt {

/// Takes over the high contrast of GNOME and its relatives, black on white or the other way round, from which
/// Qt itself takes no colours. Nothing happens where the desktop does not ask for it. Needs the application.
void FollowHighContrastOfDesktop();

}  // namespace ui::qt
