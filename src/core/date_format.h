#pragma once

#include <QLocale>
#include <string>
#include <vector>

namespace core {

// How a locale writes a moment: its short date with a four-digit year and its short time with seconds. The
// pattern is taken apart once, since a listing formats a million dates.
class DateFormat {
  public:
    explicit DateFormat(const QLocale& locale);

    // The date of a serial number, and the time of day behind it unless that is midnight.
    [[nodiscard]] std::string text(double serial) const;

  private:
    enum class Piece { Literal, Day, MonthNumber, MonthName, Year, Hour24, Hour12, Minute, Second, AmPm };
    struct Token {
        Piece piece = Piece::Literal;
        int width = 0;        // least number of digits; 4 means the long one among month names
        std::string literal;  // Piece::Literal only
    };
    struct Moment;

    [[nodiscard]] static std::vector<Token> takenApart(QString pattern);
    [[nodiscard]] static Token tokenOf(const QString& run, bool twelveHours);
    void append(std::string& out, const Token& token, const Moment& moment) const;

    std::vector<Token> m_date;
    std::vector<Token> m_time;
    std::vector<std::string> m_shortMonths;
    std::vector<std::string> m_longMonths;
    std::string m_am, m_pm;
};

}  // namespace core
