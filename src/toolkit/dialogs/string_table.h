// string_table.h: the library's compiled-in string tables, looked up by id.
#pragma once

#include <string>

namespace qmk::toolkit {

// Copies text `id` of the library's own table into `out`. Returns false, leaving `out` empty,
// when the table has no such text.
bool LoadString(int id, std::string& out);

}  // namespace qmk::toolkit
