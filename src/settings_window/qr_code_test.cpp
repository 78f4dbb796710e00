#include "settings_window/qr_code.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(QrCodeTest, AnAddressGivesASquareWithItsThreeFinders) {
  QrMatrix matrix;
  ASSERT_TRUE(encodeQrCode(u"http://192.168.1.10:22222/", matrix));
  ASSERT_EQ(matrix.size(), 25u);  // version 2
  for (const auto& row : matrix) EXPECT_EQ(row.size(), matrix.size());
  const size_t last = matrix.size() - 7;
  for (const auto& [top, left] : {std::pair<size_t, size_t>{0, 0}, {0, last}, {last, 0}}) {
    EXPECT_TRUE(matrix[top][left]);
    EXPECT_FALSE(matrix[top + 1][left + 1]);
    EXPECT_TRUE(matrix[top + 3][left + 3]);
  }
  EXPECT_TRUE(matrix[matrix.size() - 8][8]);  // this module is dark in every code
}

TEST(QrCodeTest, RowsAreNotColumns) {
  // The module that is dark in every code is beside the lower left finder. Mirrored at the upper
  // right is a format bit, which varies.
  int darkAtTheUpperRight = 0;
  for (const char16_t digit : std::u16string_view(u"123456789")) {
    QrMatrix matrix;
    ASSERT_TRUE(encodeQrCode(std::u16string(u"http://10.0.0.") + digit + u":22222/", matrix));
    EXPECT_TRUE(matrix[matrix.size() - 8][8]);
    darkAtTheUpperRight += matrix[8][matrix.size() - 8] ? 1 : 0;
  }
  EXPECT_LT(darkAtTheUpperRight, 9);
}

TEST(QrCodeTest, DifferentTextsGiveDifferentCodes) {
  QrMatrix first;
  QrMatrix second;
  ASSERT_TRUE(encodeQrCode(u"http://10.0.0.1:22222/", first));
  ASSERT_TRUE(encodeQrCode(u"http://10.0.0.2:22222/", second));
  EXPECT_NE(first, second);
}

TEST(QrCodeTest, ATextThatIsTooLongGivesNoneAndThrowsNothing) {
  QrMatrix matrix{{true}};
  EXPECT_FALSE(encodeQrCode(std::u16string(3000, u'a'), matrix));
  EXPECT_TRUE(matrix.empty());
}

TEST(QrCodeTest, ItStandsInTheMiddleWithWholePixels) {
  EXPECT_EQ(placeQrCode(200, 200, 25), (QrPlace{6, 25, 25}));
  EXPECT_EQ(placeQrCode(300, 200, 25), (QrPlace{6, 75, 25}));
}

TEST(QrCodeTest, AControlThatIsTooSmallStillGetsOnePixelAModule) {
  EXPECT_EQ(placeQrCode(20, 20, 25), (QrPlace{1, -2, -2}));
}

/// The two format bits of the error correction level, beside the upper left finder.
std::pair<bool, bool> levelBits(const QrMatrix& matrix) { return {matrix[8][0], matrix[8][1]}; }

TEST(QrCodeTest, CorrectionIsMediumOrBetterWhereTheSymbolHasRoom) {
  constexpr std::pair kMedium{true, false};
  constexpr std::pair kQuartile{false, true};
  QrMatrix matrix;
  ASSERT_TRUE(encodeQrCode(u"http://192.168.1.10:22222/", matrix));  // 26 bytes fill version 2
  EXPECT_EQ(matrix.size(), 25u);
  EXPECT_EQ(levelBits(matrix), kMedium);
  ASSERT_TRUE(encodeQrCode(u"http://192.168.1.110:22222/", matrix));
  EXPECT_EQ(matrix.size(), 29u) << "one byte more would still fit version 2 at the lowest level";
  EXPECT_EQ(levelBits(matrix), kQuartile);
  ASSERT_TRUE(encodeQrCode(u"http://1.2.3.4:1024/", matrix));
  EXPECT_EQ(matrix.size(), 25u);
  EXPECT_EQ(levelBits(matrix), kQuartile);
}

TEST(QrCodeTest, TheQuietZoneGivesWayOnlyToWholePixels) {
  EXPECT_EQ(placeQrCode(65, 65, 25), (QrPlace{1, 20, 20}));  // one pixel short of two per module
  EXPECT_EQ(placeQrCode(66, 66, 25), (QrPlace{2, 8, 8}));
  EXPECT_EQ(placeQrCode(200, 300, 25), (QrPlace{6, 25, 75}));
  EXPECT_EQ(placeQrCode(26, 26, 25), (QrPlace{1, 0, 0}));
}

}  // namespace
}  // namespace mrl
