// atomic_file.cpp: locked read-edit-replace of small settings files.
#include "platform/settings/atomic_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "platform/settings/paths.h"

namespace qmk::platform {
namespace {

// Closes a descriptor on every way out.
class Fd {
 public:
  explicit Fd(int fd) : fd_(fd) {}
  ~Fd() {
    if (fd_ >= 0) close(fd_);
  }
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  int get() const { return fd_; }

 private:
  int fd_;
};

bool WriteAll(int fd, const std::string& text) {
  size_t done = 0;
  while (done < text.size()) {
    const ssize_t n = write(fd, text.data() + done, text.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<size_t>(n);
  }
  return true;
}

bool LockExclusive(int fd) {
  while (flock(fd, LOCK_EX) != 0)
    if (errno != EINTR) return false;
  return true;
}

std::string BaseName(const std::string& path) {
  const size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

// The prefix of this file's temporary files: hidden, and named for the file they replace.
std::string TempPrefix(const std::string& path) { return "." + BaseName(path) + ".tmp-"; }

// Removes temporary files of `path` left by writers that were killed. Called under the lock:
// a live writer holds the lock while its temporary file exists, so any other one is stale.
void RemoveStaleTemps(const std::string& folder, const std::string& path) {
  DIR* dir = opendir(folder.c_str());
  if (!dir) return;
  const std::string prefix = TempPrefix(path);
  while (const dirent* entry = readdir(dir)) {
    const std::string name = entry->d_name;
    if (name.rfind(prefix, 0) == 0) unlink((folder + "/" + name).c_str());
  }
  closedir(dir);
}

std::string TempName(const std::string& folder, const std::string& path) {
  static std::atomic<unsigned> counter{0};
  return folder + "/" + TempPrefix(path) + std::to_string(getpid()) + "-" +
         std::to_string(counter++);
}

// Writes `text` to a fresh temporary file, flushes it and renames it over `path`.
bool ReplaceFile(const std::string& folder, const std::string& path, const std::string& text,
                 mode_t mode) {
  const std::string temp = TempName(folder, path);
  {
    Fd out(open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (out.get() < 0) return false;
    if (!WriteAll(out.get(), text) || fsync(out.get()) != 0) {
      unlink(temp.c_str());
      return false;
    }
  }
  if (rename(temp.c_str(), path.c_str()) != 0) {
    unlink(temp.c_str());
    return false;
  }
  return true;
}

std::string FolderOf(const std::string& path) {
  const std::string folder = ParentFolder(path);
  return folder.empty() ? "." : folder;
}

}  // namespace

ReadStatus ReadWholeFile(const std::string& path, std::string& out) {
  out.clear();
  Fd in(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (in.get() < 0) return errno == ENOENT || errno == ENOTDIR ? ReadStatus::kMissing
                                                               : ReadStatus::kFailed;
  struct stat st {};
  if (fstat(in.get(), &st) != 0 || !S_ISREG(st.st_mode)) return ReadStatus::kFailed;
  char buffer[4096];
  for (;;) {
    const ssize_t n = read(in.get(), buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 || out.size() + static_cast<size_t>(n) > kMaxSettingsFileBytes) {
      out.clear();
      return ReadStatus::kFailed;
    }
    if (n == 0) return ReadStatus::kOk;
    out.append(buffer, static_cast<size_t>(n));
  }
}

bool UpdateFileLocked(const std::string& path, const std::function<bool(std::string&)>& edit) {
  const std::string folder = FolderOf(path);
  Fd lock(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (lock.get() < 0 || !LockExclusive(lock.get())) return false;
  RemoveStaleTemps(folder, path);

  std::string text;
  if (ReadWholeFile(path, text) == ReadStatus::kFailed) return false;
  struct stat st {};
  const mode_t mode = stat(path.c_str(), &st) == 0 ? (st.st_mode & 07777) : 0644;
  if (!edit(text)) return false;
  if (!ReplaceFile(folder, path, text, mode)) return false;
  // The rename is only durable once the folder's entry is on disk too.
  fsync(lock.get());
  return true;  // closing the folder's descriptor releases the lock
}

bool TouchFile(const std::string& path) {
  Fd fd(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
  return fd.get() >= 0;
}

}  // namespace qmk::platform
