#include "render/images/image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "render/picturefiles.h"
#include "support/tempdirectory.h"

#define STB_IMAGE_WRITE_STATIC
#define STB_IMAGE_WRITE_IMPLEMENTATION
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace carapace_test {
namespace {

using namespace ZOVEngine;

constexpr int kWidth = 24;
constexpr int kHeight = 16;

/// A picture without two equal rows or columns, RGBA.
std::vector<std::uint8_t> Pixels() {
  std::vector<std::uint8_t> rgba;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      for (const int channel : {x * 10, y * 15, x + y, 255 - x}) {
        rgba.push_back(static_cast<std::uint8_t>(channel));
      }
    }
  }
  return rgba;
}

void Append(void* file, void* data, int size) {
  static_cast<std::string*>(file)->append(static_cast<const char*>(data),
                                          static_cast<std::size_t>(size));
}

std::string PngFile() {
  std::string file;
  stbi_write_png_to_func(Append, &file, kWidth, kHeight, 4, Pixels().data(), 0);
  return file;
}

std::string JpegFile() {
  std::string file;
  stbi_write_jpg_to_func(Append, &file, kWidth, kHeight, 4, Pixels().data(), 95);
  return file;
}

std::string BmpFile() {
  std::string file;
  stbi_write_bmp_to_func(Append, &file, kWidth, kHeight, 4, Pixels().data());
  return file;
}

std::string PackedTgaFile() {
  std::string file;
  stbi_write_tga_with_rle = 1;
  stbi_write_tga_to_func(Append, &file, kWidth, kHeight, 4, Pixels().data());
  return file;
}

std::string PlainTgaFile() {
  std::vector<std::uint8_t> bgra = Pixels();
  for (std::size_t i = 0; i < bgra.size(); i += 4) std::swap(bgra[i], bgra[i + 2]);
  return TgaFile(kWidth, kHeight, bgra);
}

std::optional<Image> Load(const TempDirectory& directory, const std::string& bytes) {
  directory.Write("picture", bytes);
  return LoadImage("picture");
}

void PutBig32(std::string* file, std::size_t at, std::uint32_t value) {
  for (std::size_t i = 0; i < 4; ++i) {
    (*file)[at + i] = static_cast<char>(value >> (24 - 8 * i));
  }
}

/// One file format and how exactly it keeps pixels.
struct Format {
  const char* name;
  std::string (*make)();
  int tolerance;
};

class Formats : public testing::TestWithParam<Format> {
 protected:
  TempDirectory directory;
};

TEST_P(Formats, AreDecodedToRgbaWithRowsFromTheTop) {
  const std::optional<Image> image = Load(directory, GetParam().make());
  ASSERT_TRUE(image);
  ASSERT_EQ(image->width, kWidth);
  ASSERT_EQ(image->height, kHeight);
  const std::vector<std::uint8_t> expected = Pixels();
  ASSERT_EQ(image->pixels.size(), expected.size());
  const bool lossy = GetParam().tolerance != 0;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const bool alpha = i % 4 == 3;
    const int want = lossy && alpha ? 255 : expected[i];
    ASSERT_NEAR(image->pixels[i], want, GetParam().tolerance) << i;
  }
}

TEST_P(Formats, CutAnywhereAreRefused) {
  const std::string whole = GetParam().make();
  const std::size_t ends = 80;  // every length near the start and near the end, one of 17 between
  for (std::size_t length = 0; length < whole.size();
       length += length < ends || length + ends > whole.size() ? 1 : 17) {
    ASSERT_FALSE(Load(directory, whole.substr(0, length))) << "cut to " << length;
  }
}

TEST_P(Formats, SurviveAnyDamage) {
  const std::string whole = GetParam().make();
  std::mt19937 random(1);
  const auto up_to = [&](std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit)(random);
  };
  int loaded = 0;
  for (int round = 0; round < 300; ++round) {
    std::string damaged = whole;
    for (std::size_t hits = up_to(5) + 1; hits > 0; --hits) {
      damaged[up_to(damaged.size() - 1)] = static_cast<char>(up_to(255));
    }
    const std::optional<Image> image = Load(directory, damaged);
    if (!image) continue;
    ++loaded;
    ASSERT_EQ(image->pixels.size(), 4u * static_cast<std::size_t>(image->width) *
                                        static_cast<std::size_t>(image->height));
  }
  EXPECT_LT(loaded, 300);
}

INSTANTIATE_TEST_SUITE_P(All, Formats,
                         testing::Values(Format{"Png", PngFile, 0}, Format{"Jpeg", JpegFile, 12},
                                         Format{"Bmp", BmpFile, 0}, Format{"Tga", PlainTgaFile, 0},
                                         Format{"PackedTga", PackedTgaFile, 0}),
                         [](const auto& format) { return format.param.name; });

class ImageTest : public testing::Test {
 protected:
  TempDirectory directory;
};

TEST_F(ImageTest, AnAbsentFileGivesNothing) {
  EXPECT_FALSE(LoadImage("absent.png"));
}

TEST_F(ImageTest, AnEmptyPathGivesNothing) {
  EXPECT_FALSE(LoadImage(""));
}

TEST_F(ImageTest, AFolderGivesNothing) {
  EXPECT_FALSE(LoadImage("."));
}

TEST_F(ImageTest, AnEmptyFileGivesNothing) {
  EXPECT_FALSE(Load(directory, ""));
}

TEST_F(ImageTest, GarbageGivesNothing) {
  EXPECT_FALSE(Load(directory, std::string(5000, 'x')));
  EXPECT_FALSE(Load(directory, std::string(5000, '\0')));
}

TEST_F(ImageTest, AFormatOutsideTheFourGivesNothing) {
  EXPECT_FALSE(Load(directory, "P6 1 1 255\n\x01\x02\x03"));
  EXPECT_FALSE(Load(directory, "GIF89a\x01\0\x01\0\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02D\x01\0;"));
}

TEST_F(ImageTest, AForgedChunkLengthIsFoundOutBeforeMemoryIsAskedFor) {
  std::string file = PngFile();
  const std::size_t data = file.find("IDAT");
  ASSERT_NE(data, std::string::npos);
  PutBig32(&file, data - 4, 0x7ffffff0u);
  EXPECT_FALSE(Load(directory, file));
}

TEST_F(ImageTest, AChunkThatEndsBehindTheFileByOneByteIsRefused) {
  std::string file = PngFile();
  const std::size_t end = file.find("IEND");
  ASSERT_NE(end, std::string::npos);
  PutBig32(&file, end - 4, 1);
  EXPECT_FALSE(Load(directory, file));
}

TEST_F(ImageTest, AHeaderOfAHundredThousandPixelsIsRefused) {
  std::string file = PngFile();
  PutBig32(&file, 16, 100000);
  PutBig32(&file, 20, 100000);
  EXPECT_FALSE(Load(directory, file));
}

TEST_F(ImageTest, AHeaderThatTheDataCannotFillIsRefused) {
  std::string file = PngFile();
  PutBig32(&file, 16, 4096);
  PutBig32(&file, 20, 4096);
  EXPECT_FALSE(Load(directory, file));
}

TEST_F(ImageTest, AHeaderWithoutPixelsIsRefused) {
  std::string file = PngFile();
  PutBig32(&file, 16, 0);
  EXPECT_FALSE(Load(directory, file));
}

TEST_F(ImageTest, AJpegWithATableOfMoreCodesThanThereAreIsRefused) {
  std::string file = JpegFile();
  const std::size_t table = file.find("\xff\xc4");
  ASSERT_NE(table, std::string::npos);
  file[table + 5 + 14] = '\xff';
  file[table + 5 + 15] = '\xff';
  EXPECT_FALSE(Load(directory, file));
}

TEST_F(ImageTest, AJpegWithFillBytesBeforeItsStartIsRefused) {
  EXPECT_FALSE(Load(directory, "\xff" + JpegFile()));
}

TEST_F(ImageTest, AJpegWithoutItsEndIsRefused) {
  const std::string file = JpegFile();
  EXPECT_FALSE(Load(directory, file.substr(0, file.size() - 2) + std::string(64, '\0')));
}

TEST_F(ImageTest, AJpegTooSmallForItsBlocksIsRefused) {
  std::string file = JpegFile();
  const std::size_t frame = file.find("\xff\xc0");
  ASSERT_NE(frame, std::string::npos);
  file.replace(frame + 5, 4, std::string("\x10\0\x10\0", 4));
  EXPECT_FALSE(Load(directory, file));
}

TEST_F(ImageTest, TheLargestSideIsAccepted) {
  const auto image =
      Load(directory, TgaFile(kMaxImageSide, 1, std::vector<std::uint8_t>(4u * 4096)));
  ASSERT_TRUE(image);
  EXPECT_EQ(image->width, 4096);
}

TEST_F(ImageTest, ASideBeyondTheLargestIsRefused) {
  const std::vector<std::uint8_t> row(4u * 4097);
  EXPECT_FALSE(Load(directory, TgaFile(kMaxImageSide + 1, 1, row)));
  EXPECT_FALSE(Load(directory, TgaFile(1, kMaxImageSide + 1, row)));
}

TEST_F(ImageTest, ABmpWithItsRowsFromTheTopIsDecoded) {
  std::string file = BmpFile();
  const int height = -kHeight;
  for (std::size_t i = 0; i < 4; ++i) {
    file[22 + i] = static_cast<char>(static_cast<std::uint32_t>(height) >> (8 * i));
  }
  const std::optional<Image> image = Load(directory, file);
  ASSERT_TRUE(image);
  EXPECT_EQ(image->height, kHeight);
  // The rows that were written from the bottom are now read from the top.
  EXPECT_EQ(image->pixels[1], (kHeight - 1) * 15);
}

TEST_F(ImageTest, ABmpOfTheLowestHeightThereIsIsRefused) {
  std::string file = BmpFile();
  file.replace(22, 4, std::string("\0\0\0\x80", 4));
  EXPECT_FALSE(Load(directory, file));
}

}  // namespace
TEST(Image, IsOpaqueWithoutAnySoftPixel) {
  ZOVEngine::Image image{2, 1, {1, 2, 3, 255, 4, 5, 6, 255}, {}};
  EXPECT_TRUE(ZOVEngine::IsOpaque(image));
  image.pixels[7] = 254;
  EXPECT_FALSE(ZOVEngine::IsOpaque(image));
  image.pixels[7] = 255;
  image.pixels[3] = 0;
  EXPECT_FALSE(ZOVEngine::IsOpaque(image));
}

}  // namespace carapace_test
