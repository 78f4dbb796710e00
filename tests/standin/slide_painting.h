// Paints decks: the slide of a show, and an editing window with its slide strip.
#pragma once

#include <windows.h>

#include "standin/model.h"

namespace mrl::standin {

/// Paints a slide that fills `area`.
void paintSlide(HDC target, const RECT& area, const Deck& deck, int slide);

/// The black screen after the last slide.
void paintEnd(HDC target, const RECT& area);

/// Paints the selected slide, with a strip of slides at the left.
void paintEditing(HDC target, const RECT& area, const Deck& deck);

}  // namespace mrl::standin
