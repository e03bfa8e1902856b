#include "recordings/compression.h"

#include "base/error.h"

#include <zlib.h>

#include <new>

namespace tool {
namespace {

constexpr int GzipFormat = 16 + MAX_WBITS;
constexpr int UsualMemory = 8;

/// A stream of zlib: what goes in, and a block of what comes out.
struct Stream : z_stream {
    explicit Stream(std::string_view input, int (*atEnd)(z_stream*)) : z_stream{}, end(atEnd) {
        next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
        avail_in = static_cast<uInt>(input.size());
    }

    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    ~Stream() { end(this); }

    /// Begins the next block.
    void Empty() {
        next_out = reinterpret_cast<Bytef*>(block);
        avail_out = sizeof block;
    }

    [[nodiscard]] std::string_view Made() const { return {block, sizeof block - avail_out}; }

    int (*end)(z_stream*);
    char block[1 << 16]{};
};

} // namespace

bool IsCompressed(std::string_view content) {
    return content.starts_with("\x1F\x8B");
}

std::string Compressed(std::string_view text) {
    Stream stream(text, deflateEnd);
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, GzipFormat, UsualMemory, Z_DEFAULT_STRATEGY) !=
        Z_OK) {
        throw std::bad_alloc();
    }
    std::string made;
    int status = Z_OK;
    while (status == Z_OK) {
        stream.Empty();
        status = deflate(&stream, Z_FINISH);
        made += stream.Made();
    }
    return made;
}

std::string Expanded(std::string_view compressed, std::size_t largest) {
    Stream stream(compressed, inflateEnd);
    if (inflateInit2(&stream, GzipFormat) != Z_OK) {
        throw std::bad_alloc();
    }
    std::string made;
    int status = Z_OK;
    while (status == Z_OK) {
        stream.Empty();
        status = inflate(&stream, Z_NO_FLUSH);
        if (stream.Made().size() > largest - made.size()) {
            throw Error("expanded, it is larger than any recording");
        }
        made += stream.Made();
    }
    if (status != Z_STREAM_END || stream.avail_in != 0) {
        throw Error(status == Z_BUF_ERROR ? "it is compressed and cut" : "it is compressed and damaged");
    }
    return made;
}

} // namespace tool
