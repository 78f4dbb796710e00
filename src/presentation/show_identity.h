// Which slide and which document a show is of. UI thread.
#pragma once

#include <string>

#include "presentation/show_status.h"
#include "settings/files.h"
#include "settings/settings.h"

namespace mrl {

/// Names document and slide in one text; two equal keys are the same slide.
std::u16string slideKeyOf(const ShowStatus& status);
/// Whether the running show is on the list of files that are not timed. False when no show runs.
bool isExcluded(const Settings& settings, const ShowStatus& status);
/// Whether the running show is that of `document`: by path when the show tells one, otherwise by
/// window title. False when no show runs and for an empty `document`. The file system is asked for
/// the path of `document`.
bool showsDocument(Files& files, const ShowStatus& status, const std::u16string& document);

}  // namespace mrl
