// What the settings window paints around its controls and in its lists, computed without a screen.
// Pixels. Pure functions, any thread.
#pragma once

#include <span>
#include <string>

#include "settings_window/drawing.h"
#include "settings_window/qr_code.h"

namespace mrl {

/// `page` is 0 to 4.
Drawing drawWindow(Size client, int page, int dpi);
/// The pane that holds the pages; the cards are in its pixels.
Drawing drawPane(Size client, std::span<const Rect> cards, int dpi);
/// `isTextAlone`: the preview has no background of its own.
Drawing drawPreviewHost(Size client, bool isTextAlone);
/// Black on white; all white for an empty matrix.
Drawing drawQrCode(Size client, const QrMatrix& matrix);

Drawing drawComboRow(const Rect& row, const std::u16string& text, bool isSelected, int dpi);
/// `text` is the row of the list with its prefix: see kSkippedRow.
/// `hasCursor`: the keyboard cursor is on the row; it is marked only if the row isn't selected.
Drawing drawFileRow(const Rect& row, const std::u16string& text, bool isSelected, int dpi,
                    bool hasCursor = false);
/// The status line in the footer; wrapped into two lines if necessary.
Drawing drawStatusLine(Size client, const std::u16string& text, bool hasUnsavedInput);
/// The text of a list without rows.
Drawing drawEmptyList(Size client, int dpi, bool isFocused = false);

}  // namespace mrl
