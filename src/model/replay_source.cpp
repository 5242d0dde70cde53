#include "model/replay_source.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "model/replay_limits.h"
#include "model/text_encoding.h"

namespace trelvin {

namespace fs = std::filesystem;

void ReplayFile::fail(const std::string& what) const {
    // Paths come from the system in UTF-8; messages are Windows-1250 like all core text.
    throw ReplayReadError("soubor '" + utf8ToCp1250(path_) + "' " + what);
}

void ReplayFile::open() {
    if (path_.empty()) throw ReplayReadError("nebyl zvolen zadny soubor");
    std::error_code error;
    const fs::file_status status = fs::status(path_, error);
    if (!fs::exists(status)) fail("neexistuje");
    // Opening a pipe without a writer would wait for ever, and a device may never end.
    if (!fs::is_regular_file(status))
        fail(fs::is_directory(status) ? "je slozka, ne soubor" : "neni obycejny soubor");
    size_ = fs::file_size(path_, error);
    if (error) fail("nelze precist");
    if (size_ > kMaxFileBytes)
        fail("je prilis velky (" + std::to_string(size_ >> 20) + " MB, nejvyse " +
             std::to_string(kMaxFileBytes >> 20) + " MB)");
    file_.reset(std::fopen(path_.c_str(), "rb"));
    if (!file_) fail("nelze otevrit");
}

std::size_t ReplayFile::read(char* buffer, std::size_t capacity) {
    const std::size_t got = std::fread(buffer, 1, capacity, file_.get());
    if (std::ferror(file_.get())) fail("nelze precist");
    read_ += got;
    if (got == 0 && read_ < size_) fail("se behem cteni zkratil");
    if (read_ > size_) fail("se behem cteni prodlouzil");
    return got;
}

void ReplayFile::rewind() {
    if (std::fseek(file_.get(), 0, SEEK_SET) != 0) fail("nelze precist");
    read_ = 0;
}

std::size_t ReplayText::read(char* buffer, std::size_t capacity) {
    const std::size_t count = std::min(capacity, text_.size() - offset_);
    std::memcpy(buffer, text_.data() + offset_, count);
    offset_ += count;
    return count;
}

}  // namespace trelvin
