// The command line of the stand-in.
#pragma once

#include <string>
#include <vector>

namespace mrl::standin {

/// powerpnt.exe [--progid=ID]... [--deck=PATH [--show]] [--slides=N] [--monitor=N] [--log=PATH]
///              [--unlisted] [--editing-class=NAME] [--show-class=NAME] [--show-title=TEXT]
/// powerpnt.exe --register | --unregister [--progid=ID]...
struct Options {
  std::vector<std::wstring> progIds;     // without --progid, the one that belongs to the image name
  std::wstring editingClass, showClass;  // of the windows; without these, as the program has them
  std::wstring showTitle;                // what the title of a show begins with; the same
  bool innerWindows = false;             // windows lead to the object model by one inside them
  std::wstring deck;                     // opened at start; empty means none
  std::wstring log;
  int slides = 10;  // of every deck that is opened without a number
  int monitor = 0;  // where shows appear, counted from 1; 0 is the primary one
  bool show = false;
  bool unlisted = false;  // as by the command of that name
  bool registerOnly = false;
  bool unregisterOnly = false;
};

/// What is not known is passed over: COM adds arguments of its own when it starts a server.
Options readOptions(const std::vector<std::wstring>& arguments);

/// Splits by the rules of a Windows command line: blanks part, double quotes join.
std::vector<std::wstring> splitArguments(const std::wstring& text);

/// The full path of this process's image.
std::wstring imagePath();

}  // namespace mrl::standin
