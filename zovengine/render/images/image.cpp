#include "render/images/image.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "render/images/stbimage.h"

namespace ZOVEngine {
namespace {

using Bytes = std::vector<std::uint8_t>;

// An uncompressed image of the largest size has 64 MiB; no image of the game is far larger.
constexpr std::uintmax_t kLargestFile = std::uintmax_t{128} << 20;

// A deflate stream encodes at most 258 bytes in 2 bits.
constexpr std::size_t kLargestDeflateRatio = 1032;

/// The whole file; empty when there is no regular file of a plausible size.
Bytes ReadBytes(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return {};
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error || size > kLargestFile) return {};
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return {};
  Bytes bytes(static_cast<std::size_t>(size));
  bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
  std::fclose(file);
  return bytes;
}

/// Reads numbers at any position of a file; bytes beyond its end read as 0.
class FileView {
 public:
  explicit FileView(const Bytes& bytes) : m_bytes(bytes) {}

  std::size_t Size() const { return m_bytes.size(); }
  std::uint32_t Byte(std::size_t at) const { return at < m_bytes.size() ? m_bytes[at] : 0u; }
  std::uint32_t Little16(std::size_t at) const { return Byte(at) | Byte(at + 1) << 8; }
  std::uint32_t Little32(std::size_t at) const { return Little16(at) | Little16(at + 2) << 16; }
  std::uint32_t Big32(std::size_t at) const {
    return Byte(at) << 24 | Byte(at + 1) << 16 | Byte(at + 2) << 8 | Byte(at + 3);
  }
  bool StartsWith(const char* text, std::size_t length) const {
    return m_bytes.size() >= length && std::memcmp(m_bytes.data(), text, length) == 0;
  }

 private:
  const Bytes& m_bytes;
};

constexpr std::uint32_t Tag(char a, char b, char c, char d) {
  return static_cast<std::uint32_t>(a) << 24 | static_cast<std::uint32_t>(b) << 16 |
         static_cast<std::uint32_t>(c) << 8 | static_cast<std::uint32_t>(d);
}

constexpr char kPngSignature[] = "\x89PNG\r\n\x1a\n";
constexpr std::size_t kPngSignatureSize = 8;

/// The bits of a pixel by the colour type of a PNG header.
std::size_t PngBitsPerPixel(const FileView& file) {
  constexpr std::size_t kChannels[] = {1, 0, 3, 1, 2, 0, 4};
  const std::uint32_t type = file.Byte(25);
  return type < std::size(kChannels) ? kChannels[type] * file.Byte(24) : 0;
}

/// Every chunk lies within the file and there is an end chunk. Counts the compressed bytes.
bool WalkPngChunks(const FileView& file, std::size_t* compressed) {
  std::size_t at = kPngSignatureSize;
  std::uint32_t tag = 0;
  while (tag != Tag('I', 'E', 'N', 'D')) {
    if (file.Size() - at < 12) return false;
    const std::size_t length = file.Big32(at);
    tag = file.Big32(at + 4);
    if (length > file.Size() - at - 12) return false;
    if (tag == Tag('I', 'D', 'A', 'T')) *compressed += length;
    at += length + 12;
  }
  return true;
}

bool HoldsPngPixels(const FileView& file, const ImageSize& size) {
  std::size_t compressed = 0;
  if (!WalkPngChunks(file, &compressed)) return false;
  const std::size_t row = (static_cast<std::size_t>(size.width) * PngBitsPerPixel(file) + 7) / 8;
  return row * static_cast<std::size_t>(size.height) / kLargestDeflateRatio <= compressed;
}

constexpr std::uint32_t kJpegTables = 0xc4;
constexpr std::uint32_t kJpegScan = 0xda;
constexpr std::uint32_t kJpegEnd = 0xd9;

bool IsRestart(std::uint32_t marker) {
  return marker >= 0xd0 && marker <= 0xd7;
}

/// The Huffman tables of a segment have at most 256 codes each; the decoder relies on it.
bool AreSoundTables(const FileView& file, std::size_t at, std::size_t end) {
  while (at < end) {
    std::size_t codes = 0;
    for (std::size_t i = 1; i <= 16; ++i) codes += file.Byte(at + i);
    if (codes > 256) return false;
    at += 17 + codes;
  }
  return true;
}

/// Where the data of a scan ends: at the next marker that is neither a stuffed byte nor a restart.
std::size_t ScanEnd(const FileView& file, std::size_t at) {
  for (; at + 1 < file.Size(); ++at) {
    const std::uint32_t next = file.Byte(at + 1);
    if (file.Byte(at) == 0xff && next != 0 && next != 0xff && !IsRestart(next)) break;
  }
  return at;
}

/// Segment follows segment up to the end marker, and all Huffman tables are sound.
bool WalkJpegSegments(const FileView& file) {
  std::size_t at = 2;
  while (at + 4 <= file.Size() && file.Byte(at) == 0xff) {
    const std::uint32_t marker = file.Byte(at + 1);
    if (marker == 0xff) {
      ++at;
      continue;
    }
    const std::size_t end = at + 2 + (file.Byte(at + 2) << 8 | file.Byte(at + 3));
    if (marker == kJpegEnd) return true;
    if (marker == kJpegTables && !AreSoundTables(file, at + 4, end)) return false;
    at = marker == kJpegScan ? ScanEnd(file, end) : end;
  }
  return at + 1 < file.Size() && file.Byte(at) == 0xff && file.Byte(at + 1) == kJpegEnd;
}

/// Each block of 8 by 8 pixels takes a bit at least.
bool HoldsJpegPixels(const FileView& file, const ImageSize& size) {
  const auto columns = static_cast<std::size_t>((size.width + 7) / 8);
  const auto rows = static_cast<std::size_t>((size.height + 7) / 8);
  return columns * rows <= file.Size() * 8;
}

/// The uncompressed rows lie within the file.
bool HoldsBmpPixels(const FileView& file, const ImageSize& size) {
  const std::size_t offset = file.Little32(10);
  const std::uint32_t header = file.Little32(14);
  const std::size_t bits = header == 12 ? file.Little16(24) : file.Little16(28);
  const std::size_t row = (static_cast<std::size_t>(size.width) * bits + 31) / 32 * 4;
  return offset >= 14 + header && bits != 0 && offset <= file.Size() &&
         row * static_cast<std::size_t>(size.height) <= file.Size() - offset;
}

/// Where the pixels of a TGA file start, after the text and the palette.
std::size_t TgaPixelStart(const FileView& file) {
  std::size_t start = 18 + file.Byte(0);
  if (file.Byte(1) != 0) start += file.Little16(3) + file.Little16(5) * ((file.Byte(7) + 7) / 8);
  return start;
}

/// The pixels lie within the file; run-length packets are counted.
bool HoldsTgaPixels(const FileView& file, const ImageSize& size) {
  const std::size_t pixel = (file.Byte(16) + 7) / 8;
  const std::size_t count =
      static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
  std::size_t at = TgaPixelStart(file);
  if (file.Byte(2) < 8) return at + count * pixel <= file.Size();
  for (std::size_t done = 0; done < count;) {
    if (at >= file.Size()) return false;
    const std::uint32_t packet = file.Byte(at);
    const std::size_t run = (packet & 127u) + 1;
    at += 1 + ((packet & 128u) != 0 ? pixel : run * pixel);
    done += run;
  }
  return at <= file.Size();
}

bool IsPng(const FileView& file) {
  return file.StartsWith(kPngSignature, kPngSignatureSize);
}
/// The decoder takes fill bytes before the start marker too; the walk then refuses them.
bool IsJpeg(const FileView& file) {
  return file.StartsWith("\xff\xd8", 2) || file.StartsWith("\xff\xff", 2);
}
bool IsBmp(const FileView& file) {
  return file.StartsWith("BM", 2);
}

/// True when the parts of the file lie within it, so that its header may be read.
bool IsWellBuilt(const FileView& file) {
  std::size_t ignored = 0;
  if (IsPng(file)) return WalkPngChunks(file, &ignored);
  return !IsJpeg(file) || WalkJpegSegments(file);
}

/// True when the file is long enough for the size that it states.
bool HoldsPixels(const FileView& file, const ImageSize& size) {
  if (IsPng(file)) return HoldsPngPixels(file, size);
  if (IsJpeg(file)) return HoldsJpegPixels(file, size);
  return IsBmp(file) ? HoldsBmpPixels(file, size) : HoldsTgaPixels(file, size);
}

}  // namespace

std::optional<Image> LoadImage(const std::string& path) {
  const Bytes bytes = ReadBytes(path);
  const FileView file(bytes);
  ImageSize size;
  if (bytes.empty() || !IsWellBuilt(file) || !ProbeImage(bytes, &size)) return {};
  if (!HoldsPixels(file, size)) return {};
  Image image;
  if (!DecodeImage(bytes, &size, &image.pixels)) return {};
  image.width = size.width;
  image.height = size.height;
  return image;
}

bool IsOpaque(const Image& image) {
  constexpr std::uint8_t kOpaque = 255;
  for (std::size_t alpha = 3; alpha < image.pixels.size(); alpha += 4) {
    if (image.pixels[alpha] != kOpaque) return false;
  }
  return true;
}

}  // namespace ZOVEngine
