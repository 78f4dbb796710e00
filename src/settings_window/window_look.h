// What the settings window paints around its controls and in its lists, decided without a screen.
// Pixels. Pure functions, any thread.
#pragma once

#include <span>
#include <string>

#include "settings_window/qr_code.h"
#include "settings_window/settings_drawing.h"

namespace mrl {

/// `page` is 0 to 4.
Drawing drawWindow(Size client, int page, int dpi);
/// The pane that carries the pages; the cards are in its pixels.
Drawing drawPane(Size client, std::span<const Rect> cards, int dpi);
/// `isTextAlone`: the preview shows no background of its own.
Drawing drawPreviewHost(Size client, bool isTextAlone);
/// In black on white; an empty matrix leaves the white.
Drawing drawQrCode(Size client, const QrMatrix& matrix);

Drawing drawComboRow(const Rect& row, const std::u16string& text, bool isSelected, int dpi);
/// `text` is the list's own: see kSkippedRow.
/// `hasCursor`: the keyboard stands on it, which only a row that is not selected needs to show.
Drawing drawFileRow(const Rect& row, const std::u16string& text, bool isSelected, int dpi,
                    bool hasCursor = false);
/// As the control shows it; beside the button of the footer, on two lines if need be.
Drawing drawStatusLine(Size client, const std::u16string& text, bool hasUnsavedInput);
/// A list without rows.
Drawing drawEmptyList(Size client, int dpi, bool isFocused = false);

}  // namespace mrl
