#pragma once
// Amounts of money held exactly: a count of ten-thousandths of a pound in 64
// bits, so that sums of many figures never pick up binary rounding.

#include <QString>

#include <cstdint>

namespace quillon {

class Currency {
public:
    constexpr Currency() = default;
    static constexpr Currency FromUnits(std::int64_t units) { return Currency(units); }
    static constexpr Currency FromPounds(std::int64_t pounds) { return Currency(pounds * kScale); }
    // A typed box's figure: the number at the start of the text (see `Val`),
    // to the nearest ten-thousandth, halves away from zero; 0 beyond 64 bits.
    static Currency FromText(const QString& text);

    constexpr std::int64_t Units() const { return units_; }
    // Whole pounds, halves away from zero, as the amount format shows them.
    constexpr std::int64_t RoundedPounds() const {
        const std::int64_t half = units_ < 0 ? -kScale / 2 : kScale / 2;
        return (units_ + half) / kScale;
    }
    constexpr Currency& operator+=(Currency other) {
        units_ += other.units_;
        return *this;
    }
    friend constexpr Currency operator+(Currency a, Currency b) { return a += b; }
    friend constexpr auto operator<=>(Currency, Currency) = default;

    static constexpr std::int64_t kScale = 10000;

private:
    constexpr explicit Currency(std::int64_t units) : units_(units) {}
    std::int64_t units_ = 0;
};

// The text a money box holds: the amount format of the value, right-aligned in
// 8 characters, or in 9 when negative (its brackets); zero gives "".
QString MoneyText(Currency value);

// A total's text: as `MoneyText` from -9999999 to 99999999 pounds inclusive,
// "********" beyond.
QString MoneyTotalText(Currency value);

// The key filter of a money box holding `text`: a full box (8 characters)
// takes only a closing bracket, or more after one, and refuses the rest without
// a beep; otherwise AmountKeyFilter decides.
void MoneyKeyFilter(const QString& text, int& key);

}  // namespace quillon
