#include "Platform/posix/DdeFrame.h"

#include <algorithm>
#include <cstring>

namespace platform::detail {

namespace {

// Holds some dozens of typical messages.
constexpr std::size_t FirstCapacity = 64U << 10;

}  // namespace

FrameHeader::FrameHeader(FrameKind frameKind, std::string_view text1, std::string_view text2,
                         std::size_t dataLength, unsigned dataFormat) noexcept
    : bodyLength(static_cast<std::uint32_t>(text1.size() + text2.size() + dataLength)),
      kind(frameKind),
      format(static_cast<std::uint16_t>(dataFormat)),
      length1(static_cast<std::uint16_t>(text1.size())),
      length2(static_cast<std::uint16_t>(text2.size())) {}

bool FrameHeader::IsValid() const noexcept {
    if (mark != Mark || length1 > LongestText || length2 > LongestText) return false;
    std::uint32_t const texts = std::uint32_t{length1} + length2;
    if (bodyLength < texts) return false;
    std::uint32_t const data = bodyLength - texts;
    switch (kind) {
        case FrameKind::Connect:
            return length1 > 0 && length2 > 0 && data == 0;
        case FrameKind::Accept:
        case FrameKind::Confirm:
            return bodyLength == 0;
        case FrameKind::Poke:
            return length2 == 0 && data <= DdeLargestData;
        case FrameKind::Execute:
            return texts == 0 && data <= DdeLargestData;
    }
    return false;
}

std::span<std::byte> FrameReader::Space() {
    if (begin_ == end_) {
        begin_ = end_ = 0;
        if (buffer_.size() > LargestKeptBuffer) buffer_ = {};
    }
    if (buffer_.empty()) buffer_.resize(FirstCapacity);
    if (begin_ > 0 && end_ > buffer_.size() / 2) {
        std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_),
                  buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
        end_ -= begin_;
        begin_ = 0;
    }
    if (end_ == buffer_.size()) buffer_.resize(buffer_.size() * 2);
    return std::span(buffer_).subspan(end_);
}

bool FrameReader::PeekHeader(FrameHeader& header) const noexcept {
    if (end_ - begin_ < sizeof header) return false;
    std::memcpy(&header, buffer_.data() + begin_, sizeof header);
    return true;
}

bool FrameReader::HasNext() const noexcept {
    FrameHeader header;
    if (!PeekHeader(header)) return false;
    return !header.IsValid() || end_ - begin_ - sizeof header >= header.bodyLength;
}

FrameReader::Result FrameReader::Next(Frame& frame) noexcept {
    FrameHeader header;
    if (!PeekHeader(header)) return Result::Incomplete;
    if (!header.IsValid()) return Result::Malformed;
    if (end_ - begin_ - sizeof header < header.bodyLength) return Result::Incomplete;
    std::byte const* const body = buffer_.data() + begin_ + sizeof header;
    auto const* const text = reinterpret_cast<char const*>(body);
    std::size_t const texts = std::size_t{header.length1} + header.length2;
    frame = {header.kind,
             header.format,
             {text, header.length1},
             {text + header.length1, header.length2},
             {body + texts, header.bodyLength - texts}};
    begin_ += sizeof header + header.bodyLength;
    return Result::Frame;
}

}  // namespace platform::detail
