// How decks look: the slide of a show, and an editing window with its strip of slides.
#pragma once

#include <windows.h>

#include "standin/model.h"

namespace mrl::standin {

/// A slide that fills `area`.
void paintSlide(HDC target, const RECT& area, const Deck& deck, int slide);

/// The black screen after the last slide.
void paintEnd(HDC target, const RECT& area);

/// The selected slide on a desk, with the deck's first slides in a strip at the left.
void paintEditing(HDC target, const RECT& area, const Deck& deck);

}  // namespace mrl::standin
