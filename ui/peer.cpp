#include "ui/peer.h"

namespace ui {

void Peer::Mirror(Property property) {
  switch (property) {
    case Property::kText:
      MirrorText();
      return MirrorSpokenName();
    case Property::kVisible:
      return MirrorVisible();
    case Property::kEnabled:
      return MirrorEnabled();
    case Property::kBounds:
      return MirrorBounds();
    case Property::kHelp:
      return MirrorHelp();
    case Property::kColours:
      return MirrorColours();
    case Property::kFont:
      return MirrorFont();
    case Property::kValue:
      return MirrorValue();
    case Property::kItems:
      return MirrorItems();
    case Property::kSelection:
      return MirrorSelection();
    case Property::kState:
      return MirrorState();
  }
}

}  // namespace ui
