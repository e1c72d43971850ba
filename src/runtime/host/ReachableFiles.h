// Which files a running program reaches, and how it opens them. Programs come from other people: one may be handed in
// by a pupil or found in the net, and must not harm who runs it.
//
// A program has a folder, from which its file names start, and reaches the files in it and below it. Everything else
// needs consent: what lies outside, by whatever name or link; hidden files, where other programs keep what they do and
// know; and writing to programs and executables.
#pragma once

#include "platform/files/Descriptor.h"
#include "runtime/host/FileError.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <utility>

namespace tolvan {

enum class DataFileMode : std::uint8_t { Read = 1, Write = 2, Append = 3 };

class ReachableFiles {
  public:
    enum class Reach : std::uint8_t { Nothing, Folder, Everything };
    // Whether the program may read the file with this path, or write it. The path is that of the file itself, whatever
    // links led there.
    using Consent = std::function<bool(const std::string& path, bool writing)>;

    // Names start from `folder`, whatever is reached; at first from the working folder. It is made when the first file
    // is written, if it is not there. Without `consent` there is none.
    ReachableFiles() : ReachableFiles(".") {}
    explicit ReachableFiles(const std::string& folder, Reach reach = Reach::Folder);

    void setConsent(Consent consent) { consent_ = std::move(consent); }
    // How many more bytes the program may write; without limit before. A file opened for writing takes a block.
    void setSpace(std::uint64_t bytes) { space_ = bytes; }
    // False, with nothing taken, if there are not so many left.
    bool takeSpace(std::uint64_t bytes);
    // Before a run: what was allowed or refused is asked anew.
    void forgetAnswers() { answers_.clear(); }

    // Opens the file with this name, as findPath understands it. PermissionDenied if it is out of reach; PathAccess for
    // what is no place for lines, such as a folder or a pipe, which could hang the program. Write empties a file that
    // exists, Append goes on at its end; both create one that does not.
    FileError open(const std::string& name, DataFileMode mode, Descriptor& file);

  private:
    FileError openOwn(const std::string& path, DataFileMode mode, Descriptor& file);
    FileError openOther(const std::string& path, DataFileMode mode, Descriptor& file);
    bool hasConsent(const std::string& path, bool writing);

    std::string folder_;
    Reach reach_;
    Consent consent_;
    std::uint64_t space_ = std::numeric_limits<std::uint64_t>::max();
    std::map<std::pair<std::string, bool>, bool> answers_;
};

}  // namespace tolvan
