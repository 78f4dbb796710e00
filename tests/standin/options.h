// The stand-in's command line.
#pragma once

#include <string>
#include <vector>

namespace mrl::standin {

/// powerpnt.exe [--progid=ID]... [--deck=PATH [--show]] [--slides=N] [--monitor=N] [--log=PATH]
///              [--unlisted] [--editing-class=NAME] [--show-class=NAME] [--show-title=TEXT]
/// powerpnt.exe --register | --unregister [--progid=ID]...
struct Options {
  std::vector<std::wstring> progIds;     // default: the ProgID that matches the image name
  std::wstring editingClass, showClass;  // default: as in the real program
  std::wstring showTitle;                // prefix of a show's title; same default
  bool innerWindows = false;             // a child window leads to the object model
  std::wstring deck;                     // opened at start, unless empty
  std::wstring log;
  int slides = 10;  // default number of slides of a deck
  int monitor = 0;  // for shows, 1-based; 0: the primary one
  bool show = false;
  bool unlisted = false;  // see the command of that name
  bool registerOnly = false;
  bool unregisterOnly = false;
};

/// Ignores unknown arguments: COM adds some of its own when it starts a server.
Options readOptions(const std::vector<std::wstring>& arguments);

/// Splits like a Windows command line: spaces separate, double quotes group.
std::vector<std::wstring> splitArguments(const std::wstring& text);

/// The full path of this process's image.
std::wstring imagePath();

}  // namespace mrl::standin
