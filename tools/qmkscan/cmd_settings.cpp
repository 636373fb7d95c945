// cmd_settings.cpp: qmkscan settings get|set|list (and, in INI files, sections|keys|delete):
// reads and writes the settings store, so that an installer can inspect and seed it.
#include <cstdio>
#include <string>

#include "commands.h"
#include "options/settings_paths.h"
#include "platform/settings/key_store.h"
#include "platform/settings/paths.h"
#include "platform/settings/profile_file.h"
#include "platform/text.h"

namespace qmkscan {
namespace {

using qmk::platform::KeyHandle;
using qmk::platform::KeyRoot;

constexpr size_t kShownBytes = 10240;

// A value's bytes as a person reads them: a string up to its zero, other types in hex.
std::string Shown(const qmk::platform::KeyValue& v) {
  if (v.type == qmk::platform::kValueString) return v.data.substr(0, v.data.find('\0'));
  std::string hex;
  for (unsigned char c : v.data) hex += (hex.empty() ? "" : " ") + qmk::platform::HexByte(c);
  return "hex:" + hex;
}

void ListKey(const KeyHandle& key, const std::string& path, KeyRoot root, int depth) {
  std::printf("[%s]\n", path.empty() ? "(root)" : path.c_str());
  for (const auto& v : key.Values()) std::printf("  %s = %s\n", v.name.c_str(), Shown(v).c_str());
  if (depth <= 0) return;
  for (const std::string& sub : key.SubKeys()) {
    const std::string sub_path = path.empty() ? sub : path + "\\" + sub;
    if (auto child = KeyHandle::Open(root, sub_path, false)) ListKey(*child, sub_path, root, depth - 1);
  }
}

// Prints the names of a zero-separated list read with the profile's listing rules.
void PrintNameList(const char* section, const std::string& path) {
  std::string buffer(kShownBytes, '\0');
  const size_t n = qmk::platform::ReadProfileEntry(section, nullptr, "", buffer.data(),
                                                  buffer.size(), path);
  for (size_t at = 0; at < n;) {
    const std::string name(buffer.c_str() + at);
    std::printf("%s\n", name.c_str());
    at += name.size() + 1;
  }
}

int IniCommand(const std::string& verb, const std::string& ini, const std::vector<std::string>& w) {
  const std::string path = qmk::options::ResolveIniPath(ini);
  if (path.empty()) {
    std::fprintf(stderr, "qmkscan settings: the INI file name \"%s\" makes too long a path\n",
                 ini.c_str());
    return 1;
  }
  if (verb == "get" && w.size() == 2) {
    std::printf("%s\n", qmk::platform::ReadProfileString(w[0], w[1], "", path, 1024).c_str());
    return 0;
  }
  if (verb == "set" && w.size() == 3) {
    qmk::platform::CreateFolders(qmk::platform::ParentFolder(path));
    if (qmk::platform::WriteProfileString(w[0], w[1], w[2], path)) return 0;
    std::fprintf(stderr, "qmkscan settings: could not write %s (or the entry has a line break, "
                 "\"=\" in the name, or \"]\" in the section)\n", path.c_str());
    return 1;
  }
  if (verb == "list" && w.empty()) {
    std::printf("# %s\n", path.c_str());
    std::FILE* f = std::fopen(path.c_str(), "r");
    if (!f) return 0;
    char line[1024];
    while (std::fgets(line, sizeof line, f)) std::fputs(line, stdout);
    std::fclose(f);
    return 0;
  }
  if (verb == "sections" && w.empty()) {
    PrintNameList(nullptr, path);
    return 0;
  }
  if (verb == "keys" && w.size() == 1) {
    PrintNameList(w[0].c_str(), path);
    return 0;
  }
  if (verb == "delete" && (w.size() == 1 || w.size() == 2)) {
    if (qmk::platform::WriteProfileEntry(w[0].c_str(), w.size() == 2 ? w[1].c_str() : nullptr,
                                         nullptr, path))
      return 0;
    std::fprintf(stderr, "qmkscan settings: could not change %s\n", path.c_str());
    return 1;
  }
  std::fprintf(stderr, "qmkscan settings --ini NAME: get SECTION KEY | set SECTION KEY VALUE | "
               "list | sections | keys SECTION | delete SECTION [KEY]\n");
  return 2;
}

}  // namespace

int RunSettings(Args& args) {
  const bool machine = args.Flag("machine");
  const std::optional<std::string> ini = args.Option("ini");
  const auto depth = IntOption(args, "depth", 8);
  if (!depth || !args.NoUnknownOptions("settings")) return 2;
  std::vector<std::string> words = args.rest();
  if (words.empty()) {
    std::fprintf(stderr, "qmkscan settings: get, set or list; see qmkscan --help\n");
    return 2;
  }
  const std::string verb = words[0];
  words.erase(words.begin());
  if (ini) return IniCommand(verb, *ini, words);

  const KeyRoot root = machine ? KeyRoot::kLocalMachine : KeyRoot::kCurrentUser;
  if (verb == "get" && words.size() == 2) {
    auto key = KeyHandle::Open(root, words[0], false);
    std::string bytes;
    if (!key || key->Query(words[1], bytes, kShownBytes) != qmk::platform::QueryResult::kOk) {
      std::fprintf(stderr, "qmkscan settings: no value \"%s\" in key \"%s\"\n", words[1].c_str(),
                   words[0].c_str());
      return 1;
    }
    std::printf("%s\n", bytes.substr(0, bytes.find('\0')).c_str());
    return 0;
  }
  if (verb == "set" && words.size() == 3) {
    auto key = KeyHandle::Open(root, words[0], true);
    if (key && key->SetString(words[1], words[2])) return 0;
    std::fprintf(stderr, "qmkscan settings: could not write key \"%s\" under %s\n",
                 words[0].c_str(), qmk::platform::KeyRootFolder(root).c_str());
    return 1;
  }
  if (verb == "list" && words.size() <= 1) {
    const std::string path = words.empty() ? "" : words[0];
    auto key = KeyHandle::Open(root, path, false);
    if (!key) {
      std::fprintf(stderr, "qmkscan settings: no key \"%s\" under %s\n", path.c_str(),
                   qmk::platform::KeyRootFolder(root).c_str());
      return 1;
    }
    ListKey(*key, path, root, static_cast<int>(*depth));
    return 0;
  }
  std::fprintf(stderr, "qmkscan settings: get KEY NAME | set KEY NAME TEXT | list [KEY]\n");
  return 2;
}

}  // namespace qmkscan
