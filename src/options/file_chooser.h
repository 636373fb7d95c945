// file_chooser.h: a plain open-file chooser on the library's own window system: the folder's
// entries filtered by the chosen type, a name box, OK and Cancel.
#pragma once

#include <string>
#include <vector>

namespace qmk::options {

// One filter of the chooser: a description and its patterns ("*.txt;*.csv").
struct FileFilter {
  std::string description;
  std::string patterns;
};

// Splits a filter text of description|patterns pairs joined by vertical bars.
std::vector<FileFilter> ParseFileFilter(const std::string& bars);

// The entries of `folder` to list: "[..]" unless it is the root, then "[name]" for each folder,
// then the files matching `patterns`, each group sorted. Hidden entries are left out.
std::vector<std::string> ListFolder(const std::string& folder, const std::string& patterns);

// What a typed or picked name means in `folder`: the path it names, and whether that is a
// folder to open rather than a file to choose.
struct ChooserTarget {
  std::string path;
  bool is_folder = false;
  bool folder_exists = false;  // the folder part of `path` is there
};
ChooserTarget ResolveChooserName(const std::string& folder, const std::string& name);

// Runs the chooser modally; true and the chosen path on OK. An empty `initial_folder` starts in
// the working folder.
bool RunFileChooser(const std::string& title, const std::string& filter,
                    const std::string& initial_folder, const std::string& initial_file,
                    std::string& chosen);

}  // namespace qmk::options
