// Identifies the slide and the document of a show. UI thread.
#pragma once

#include <string>

#include "presentation/show_status.h"
#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// Key for document and slide; equal keys mean the same slide.
std::u16string slideKeyOf(const ShowStatus& status);
/// Whether the running show's document is on the skip list. False if no show is running.
bool isExcluded(const Settings& settings, const ShowStatus& status);
/// Whether the running show is of `document`: compares paths if the show reports one, otherwise the
/// window title. False if no show is running or `document` is empty. Resolves the path of
/// `document` through the file system.
bool showsDocument(Files& files, const ShowStatus& status, const std::u16string& document);

}  // namespace mrl
