#pragma once
// Where the loader's bytes come from: a file on disk, read in pieces, or text in memory.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace trelvin {

// A source that cannot be opened or read; the text (Windows-1250) describes why.
class ReplayReadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class ReplaySource {
public:
    virtual ~ReplaySource() = default;
    // Makes the bytes available; the loader calls it once, after emptying its tables.
    virtual void open() {}
    // Up to `capacity` bytes into `buffer`; 0 at the end.
    virtual std::size_t read(char* buffer, std::size_t capacity) = 0;
    // Back to the first byte, for a second pass: the bytes read then must be those of the first.
    virtual void rewind() = 0;
    // The number of bytes the source holds, once opened.
    virtual std::uint64_t size() const = 0;
};

// A regular file. Anything else a path may name (a directory, a device, a pipe, a socket)
// fails at open, before anything could block; so does a file past the size limit. A file that
// becomes shorter or longer than it was at open fails where that shows, in either pass.
class ReplayFile : public ReplaySource {
public:
    // `path` as the system spells it (UTF-8 on Linux).
    explicit ReplayFile(std::string path) : path_(std::move(path)) {}
    void open() override;
    std::size_t read(char* buffer, std::size_t capacity) override;
    void rewind() override;
    std::uint64_t size() const override { return size_; }

private:
    [[noreturn]] void fail(const std::string& what) const;

    std::string path_;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_{nullptr, &std::fclose};
    std::uint64_t size_ = 0;  // as the file system told it at open
    std::uint64_t read_ = 0;  // in this pass
};

// Bytes already in memory.
class ReplayText : public ReplaySource {
public:
    explicit ReplayText(std::string_view text) : text_(text) {}
    std::size_t read(char* buffer, std::size_t capacity) override;
    void rewind() override { offset_ = 0; }
    std::uint64_t size() const override { return text_.size(); }

private:
    std::string_view text_;
    std::size_t offset_ = 0;
};

}  // namespace trelvin
