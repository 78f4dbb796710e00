// An in-memory file system that can fail any step and lose power after any step.
#pragma once

#include <cassert>
#include <functional>
#include <limits>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "base/char_rules.h"
#include "settings/files.h"
#include "settings/path_text.h"

namespace mrl {

/// With '\\' it ignores but preserves case and has drive C; with '/' it is case-sensitive.
class FilesFake : public Files {
 public:
  enum class Operation {
    Status,
    Read,
    Create,
    Write,
    Flush,
    Replace,
    Remove,
    CreateFolders,
    List,
    Advance,  // to the next entry of a list
    Canonical,
  };
  struct Step {
    Operation operation;
    std::u16string path;
    bool operator==(const Step&) const = default;
  };
  static constexpr size_t kNever = std::numeric_limits<size_t>::max();

  explicit FilesFake(char16_t separator = u'\\')
      : mark(separator), root(separator == u'\\' ? u"C:\\" : u"/") {
    nodes[key(root)] = {.path = root, .kind = FileKind::Directory};
  }

  // Controls.
  std::set<Operation> failing;     // these always fail
  size_t failingStep = kNever;     // the index, from 0, of one step that fails
  size_t stepsUntilDark = kNever;  // the power fails after that many steps; later ones fail
  std::u16string systemWords = u"Access is denied.";
  void denyAccess(const std::u16string& path) { denied.insert(key(resolve(path))); }
  /// Another process holds the file open without sharing.
  void holdOpen(const std::u16string& path) { held.insert(key(resolve(path))); }
  /// The machine restarts: what was not flushed is lost.
  void restorePower() {
    for (auto& [name, node] : nodes) node.bytes = node.flushed;
    held.clear();
    stepsUntilDark = kNever;
  }

  // The recorded steps.
  std::vector<Step> done;

  // The content of the disk. These calls are no steps.
  void putFolder(const std::u16string& path) { makeFolders(resolve(path)); }
  void putFile(const std::u16string& path, std::string bytes) {
    const std::u16string full = resolve(path);
    makeFolders(parentOf(full));
    nodes[key(full)] = {spelled(full), FileKind::Regular, bytes, bytes};
  }
  void putLink(const std::u16string& path, const std::u16string& target) {
    const std::u16string full = resolve(path);
    links[key(full)] = {spelled(full), target};
  }
  [[nodiscard]] bool exists(const std::u16string& path) const { return find(path) != nullptr; }
  /// REQUIRES: the file exists.
  [[nodiscard]] const std::string& bytesOf(const std::u16string& path) const {
    assert(exists(path));
    return find(path)->bytes;
  }

  bool status(const std::u16string& path, FileKind& kind, std::u16string& error) override {
    if (!step(Operation::Status, path) || isDenied(path)) {
      error = systemWords;
      return false;
    }
    const Node* node = find(path);
    kind = node ? node->kind : FileKind::Missing;
    return true;
  }

  bool read(const std::u16string& path, std::string& bytes) override {
    if (!step(Operation::Read, path) || isDenied(path) || isHeld(path)) return false;
    const Node* node = find(path);
    if (!node || node->kind != FileKind::Regular) return false;
    bytes = node->bytes;
    return true;
  }

  std::unique_ptr<FileWriter> create(const std::u16string& path) override {
    if (!step(Operation::Create, path) || isDenied(path) || isHeld(path)) return nullptr;
    const std::u16string full = resolve(path);
    const Node* folder = find(parentOf(full));
    const Node* old = find(path);
    if (path.empty() || !folder || folder->kind != FileKind::Directory) return nullptr;
    if (old && old->kind != FileKind::Regular) return nullptr;
    nodes[key(full)] = {spelled(full), FileKind::Regular, "", ""};
    held.insert(key(full));
    return std::make_unique<Writer>(*this, full);
  }

  bool replace(const std::u16string& from, const std::u16string& to) override {
    if (!step(Operation::Replace, from) || isDenied(to) || isHeld(from) || isHeld(to)) return false;
    const Node* source = find(from);
    const Node* target = find(to);
    if (!source || (target && target->kind != FileKind::Regular)) return false;
    Node moved = *source;
    moved.path = spelled(resolve(to));
    nodes.erase(key(resolve(from)));
    nodes[key(resolve(to))] = moved;
    return true;
  }

  void remove(const std::u16string& path) override {
    const bool open = isHeld(path);
    if (step(Operation::Remove, path) && !open) nodes.erase(key(resolve(path)));
  }

  bool createFolders(const std::u16string& path, std::u16string& error) override {
    if (step(Operation::CreateFolders, path) && makeFolders(resolve(path))) return true;
    error = systemWords;
    return false;
  }

  std::vector<FolderEntry> list(const std::u16string& folder) override {
    assert(!folder.empty());
    std::vector<FolderEntry> entries;
    if (!step(Operation::List, folder) || isDenied(folder)) return entries;
    for (const std::u16string& path : childrenOf(resolve(folder))) {
      if (!step(Operation::Advance, path)) break;
      const Node* node = find(path);
      entries.push_back(
          {path.substr(path.find_last_of(mark) + 1), node ? node->kind : FileKind::Missing});
    }
    return entries;
  }

  CanonicalResult canonical(const std::u16string& path, std::u16string& result) override {
    if (!step(Operation::Canonical, path) || isDenied(path)) return CanonicalResult::Failed;
    const Node* node = find(path);
    if (!node) return CanonicalResult::Missing;
    if (path.back() == mark && node->kind != FileKind::Directory) return CanonicalResult::Missing;
    result = node->path;
    return CanonicalResult::Found;
  }

  [[nodiscard]] char16_t separator() const override { return mark; }

 private:
  struct Node {
    std::u16string path;  // as it was spelled when it was made
    FileKind kind = FileKind::Regular;
    std::string bytes = {};
    std::string flushed = {};
  };
  struct Link {
    std::u16string path;  // as it was spelled when it was made
    std::u16string target;
  };

  class Writer : public FileWriter {
   public:
    Writer(FilesFake& owner, std::u16string path) : files(owner), full(std::move(path)) {}
    ~Writer() override { files.held.erase(files.key(full)); }
    bool write(std::string_view bytes) override {
      const bool whole = files.step(Operation::Write, full);
      if (files.isDark()) return false;
      node().bytes += bytes.substr(0, whole ? bytes.size() : bytes.size() / 2);
      return whole;
    }
    bool flush() override {
      if (!files.step(Operation::Flush, full)) return false;
      node().flushed = node().bytes;
      return true;
    }

   private:
    Node& node() { return files.nodes.at(files.key(full)); }
    FilesFake& files;
    std::u16string full;
  };

  [[nodiscard]] bool isDark() const { return done.size() > stepsUntilDark; }
  bool step(Operation operation, const std::u16string& path) {
    const size_t index = done.size();
    done.push_back({operation, path});
    return !isDark() && index != failingStep && !failing.contains(operation);
  }

  [[nodiscard]] std::u16string key(const std::u16string& full) const {
    return mark == u'\\' ? lowerCopy(full) : full;
  }
  [[nodiscard]] std::u16string parentOf(const std::u16string& full) const {
    return std::u16string(parentFolder(full));
  }
  [[nodiscard]] bool isHeld(const std::u16string& path) const {
    return held.contains(key(resolve(path)));
  }
  [[nodiscard]] bool isDenied(const std::u16string& path) const {
    return denied.contains(key(resolve(path)));
  }

  /// Absolute and normalised, links followed.
  [[nodiscard]] std::u16string resolve(const std::u16string& path) const {
    std::u16string full = lexicallyNormal(rootLength(path, mark) == 0 ? root + path : path, mark);
    const size_t start = rootLength(full, mark);
    if (full.size() > start && full.back() == mark) full.pop_back();
    for (size_t end = full.find(mark, start);; end = full.find(mark, end + 1)) {
      const auto link = links.find(key(full.substr(0, end)));
      if (link != links.end()) {
        const std::u16string& target = link->second.target;
        return resolve(end == full.npos ? target : target + full.substr(end));
      }
      if (end == full.npos) return full;
    }
  }

  [[nodiscard]] const Node* find(const std::u16string& path) const {
    const auto node = nodes.find(key(resolve(path)));
    return path.empty() || node == nodes.end() ? nullptr : &node->second;
  }

  [[nodiscard]] std::vector<std::u16string> childrenOf(const std::u16string& full) const {
    std::vector<std::u16string> paths;
    const auto addFrom = [&](const auto& map) {
      for (const auto& [name, child] : map) {
        if (name != key(full) && parentOf(name) == key(full)) paths.push_back(child.path);
      }
    };
    addFrom(nodes);
    addFrom(links);
    return paths;
  }

  /// The name as given, below the folder as it was spelled when it was made.
  [[nodiscard]] std::u16string spelled(const std::u16string& full) const {
    const std::u16string parent = parentOf(full);
    const Node* folder = find(parent);
    if (!folder || full.size() <= parent.size()) return full;
    const size_t name = full.find_last_of(mark) + 1;
    return folder->path + (folder->path.back() == mark ? u"" : std::u16string(1, mark)) +
           full.substr(name);
  }

  bool makeFolders(const std::u16string& full) {
    if (const Node* node = find(full)) return node->kind == FileKind::Directory;
    const std::u16string parent = parentOf(full);
    if (parent != full && !makeFolders(parent)) return false;
    nodes[key(full)] = {.path = spelled(full), .kind = FileKind::Directory};
    return true;
  }

  char16_t mark;
  std::u16string root;
  std::map<std::u16string, Node> nodes;
  std::map<std::u16string, Link> links;
  std::set<std::u16string> held;
  std::set<std::u16string> denied;
};

}  // namespace mrl
