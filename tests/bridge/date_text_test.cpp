#include <QLocale>
#include <gtest/gtest.h>

#include "bridge/date_text.h"

namespace trelvin {

TEST(GeneralDateText, OnlyTheDateAtExactlyMidnight) {
    const auto at = [](int hour, int second, const QLocale& locale) {
        return GeneralDateText(*DateTime::fromParts(2004, 6, 5, hour, 0, second), locale);
    };
    EXPECT_EQ(at(0, 0, QLocale(QLocale::Czech)), u"05.06.04");
    EXPECT_EQ(at(0, 1, QLocale(QLocale::Czech)), u"05.06.04 0:00:01");
    // A zone written before the time leaves no blank behind either.
    EXPECT_EQ(at(14, 9, QLocale(QLocale::Chinese, QLocale::China)), u"2004/6/5 14:00:09");
}

}  // namespace trelvin
