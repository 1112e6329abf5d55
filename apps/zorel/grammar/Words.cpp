// SPDX-License-Identifier: Apache-2.0
#include "grammar/Words.h"

#include <fmt/format.h>

#include <array>

namespace zorel::cli {

using almanac::Date;

namespace {
struct Pair {
    std::string_view english;
    std::string_view turkish;

    [[nodiscard]] std::string_view in(Language language) const {
        return language == Language::turkish ? turkish : english;
    }
};

constexpr std::array<Pair, static_cast<std::size_t>(Word::count_)> kWords{{
    {"Second nightfall", "İkinci yatsı"},
    {"Before noon", "Öğleden önce"},
    {"Last sixth of the night", "Gecenin son altıda biri"},
    {"Middle of the night", "Gece yarısı"},
    {"First third of the night", "Gecenin ilk üçte biri"},
    {"Sun at qibla", "Kıble saati"},
    {"next", "sıradaki"},
    {"in", "kalan"},
    {"h", "sa"},
    {"min", "dk"},
    {"less than a minute", "bir dakikadan az"},
    {"none today", "bugün yok"},
    {"no such time today", "bugün bu vakit yok"},
    {"Other times", "Diğer vakitler"},
    {"Hijri", "Hicri"},
    {"Rumi", "Rumi"},
    {"latitude lowered to", "enlem şuna indirildi:"},
    {"taken from", "şu günden alındı:"},
    {"day of the Hızır half-year", "Hızır günü"},
    {"day of the Kasım half-year", "Kasım günü"},
    {"No cities yet. Add one with: zorel cities add NAME",
     "Henüz şehir yok. Eklemek için: zorel cities add AD"},
    {"on", "açık"},
    {"off", "kapalı"},
    {"Sun", "Güneş"},
    {"Moon", "Ay"},
    {"rise", "doğuş"},
    {"set", "batış"},
    {"transit", "tepe"},
    {"altitude", "yükseklik"},
    {"azimuth", "azimut"},
    {"declination", "dik açıklık"},
    {"right ascension", "sağ açıklık"},
    {"distance", "uzaklık"},
    {"diameter", "çap"},
    {"equation of time", "zaman denklemi"},
    {"shadow of a staff of 1", "1 boyundaki çubuğun gölgesi"},
    {"illuminated", "aydınlık"},
    {"elongation", "uzanım"},
    {"Next phases", "Sonraki evreler"},
    {"new moon", "yeni ay"},
    {"first quarter", "ilk dördün"},
    {"full moon", "dolunay"},
    {"last quarter", "son dördün"},
    {"waxing", "büyüyen"},
    {"waning", "küçülen"},
    {"Qibla, true bearing", "Kıble, gerçek kuzeyden"},
    {"Qibla, magnetic bearing", "Kıble, pusulada"},
    {"Magnetic declination", "Manyetik sapma"},
    {"Magnetic model", "Manyetik model"},
    {"east", "doğu"},
    {"west", "batı"},
    {"the Sun does not stand in the qibla today", "Güneş bugün kıble yönünde durmuyor"},
    {"this is the Kaaba itself: every direction is the qibla", "burası Kâbe: her yön kıbledir"},
    {"extrapolated", "aralığın dışına uzatıldı"},
    {"no sunrise or sunset there that day: computed at a lower latitude (see: zorel today --date)",
     "o gün orada güneş doğmuyor ya da batmıyor: daha düşük bir enlemde hesaplandı (bkz. zorel today "
     "--date)"},
    {"the sky did not get dark enough: taken from an earlier day (see: zorel today --date)",
     "gök yeterince kararmadı: daha önceki bir günden alındı (bkz. zorel today --date)"},
    {"a time is corrected (see: zorel today --date --explain)",
     "bir vakit düzeltildi (bkz. zorel today --date --explain)"},
    {"the Sun stands {degrees}° below the horizon", "Güneş ufkun {degrees}° altında"},
    {"the Sun stands {degrees}° above the horizon", "Güneş ufkun {degrees}° üstünde"},
    {"the Sun stands at the horizon", "Güneş ufukta"},
    {"the Sun stands at its highest", "Güneş tepede"},
    {"shadows are longer than at noon by {staffs} times the staff, the Sun {degrees}° high",
     "gölgeler öğlekinden çubuğun {staffs} katı uzun, Güneş {degrees}° yüksekte"},
    {"1/{parts} of the night has passed since {name}",
     "{name} vaktinden beri gecenin 1/{parts} kadarı geçti"},
    {"1/{parts} of the night is left until {name}", "{name} vaktine gecenin 1/{parts} kadarı kaldı"},
    {"exact", "tam"},
    {"{name} {time} because {rule}.", "{name} {time}, çünkü {rule}."},
    {"{name}: none today. Its rule: {rule}.", "{name}: bugün yok. Kuralı: {rule}."},
    {"added", "eklenen"},
    {"rounds", "tur"},
    {"date", "tarih"},
    {"latitude", "enlem"},
    {"Why these times", "Bu vakitler neden böyle"},
    {"now", "şimdi"},
    {"time", "vakit"},
    {"minutes", "dakika"},
    {"rings at", "çalacağı an"},
    {"ringtone", "zil sesi"},
    {"duration", "süre"},
    {"epoch", "dönem"},
    {"made for", "geçerlilik"},
    {"not in the catalogue", "katalogda yok"},
    {"has passed", "vakti geçti"},
    {"no such time in the next days", "önümüzdeki günlerde bu vakit yok"},
    {"will not ring", "çalmayacak"},
    {"here", "burada"},
    {"Distance to the Kaaba", "Kâbe'ye uzaklık"},
    {"the Earth's field is weak here: a compass is unreliable",
     "yerin mıknatıs alanı burada zayıf: pusulaya güvenilmez"},
    {"the Earth's field stands almost upright here: a compass is useless",
     "yerin mıknatıs alanı burada dike yakın: pusula işe yaramaz"},
    {"clock by the catalogue's rule (tz {edition}): this system has no time zone data of {zone}",
     "saat kataloğun kuralına göre (tz {edition}): bu sistemde {zone} için saat dilimi verisi yok"},
    {"clock by the catalogue's rule (tz {edition}), UTC{offset}; this system's time zone data (tz {system}) "
     "is "
     "older and says UTC{other}",
     "saat kataloğun kuralına göre (tz {edition}), UTC{offset}; bu sistemin saat dilimi verisi (tz {system}) "
     "daha eski ve UTC{other} diyor"},
    {"clock by this system's time zone data (tz {system}), UTC{offset}; the catalogue's rule (tz {edition}) "
     "is "
     "newer and says UTC{other}, but does not hold for every day",
     "saat bu sistemin saat dilimi verisine göre (tz {system}), UTC{offset}; kataloğun kuralı (tz {edition}) "
     "daha yeni ve UTC{other} diyor, ama her gün için geçerli değil"},
    {"{days} days from {first} to {last}", "{first} ile {last} arasında {days} gün"},
    {"before midnight, on the eve: the engine adds an hour to such a time; the parts of the night follow it",
     "gece yarısından önce, bir önceki akşam: motor böyle bir vakte bir saat ekler; gecenin bölümleri de ona "
     "uyar"},
    {"by the Sun of this day: the engine judges by the day before whether it rises and sets",
     "bu günün Güneşine göre: motor doğup battığına bir önceki güne bakarak karar verir"},
    {"by the Sun of this day: the engine takes that of an earlier day",
     "bu günün Güneşine göre: motor daha önceki bir günün Güneşini alır"},
    {"the clock is a day away from the meridian, beyond the date line",
     "saat boylamından bir gün uzakta, tarih çizgisinin ötesinde"},
    {"the night has no beginning or no end, so there is no part of it",
     "gecenin başı ya da sonu yok, bu yüzden bölümü de yok"},
    {"moved to where the Sun is really down (or up): its way is too flat for the temkin",
     "Güneşin gerçekten battığı (ya da doğduğu) ana alındı: yolu temkin için fazla yatık"},
    {"the clock changes between this time and noon: told by the clock then in force",
     "bu vakitle öğle arasında saat değişiyor: o an geçerli saatle söylendi"},
    {"taken from an earlier day it would stand out of its order: there is none that day",
     "daha önceki bir günden alınsa sırası bozulurdu: o gün yok"},
    {"towards the Kaaba itself", "Kâbe'nin kendisine doğru"},
}};

constexpr std::array<Pair, 12> kMonths{{{"January", "Ocak"},
                                        {"February", "Şubat"},
                                        {"March", "Mart"},
                                        {"April", "Nisan"},
                                        {"May", "Mayıs"},
                                        {"June", "Haziran"},
                                        {"July", "Temmuz"},
                                        {"August", "Ağustos"},
                                        {"September", "Eylül"},
                                        {"October", "Ekim"},
                                        {"November", "Kasım"},
                                        {"December", "Aralık"}}};

constexpr std::array<Pair, 12> kHijriMonths{{{"Muharram", "Muharrem"},
                                             {"Safar", "Safer"},
                                             {"Rabi I", "Rebiülevvel"},
                                             {"Rabi II", "Rebiülahir"},
                                             {"Jumada I", "Cemaziyelevvel"},
                                             {"Jumada II", "Cemaziyelahir"},
                                             {"Rajab", "Recep"},
                                             {"Shaban", "Şaban"},
                                             {"Ramadan", "Ramazan"},
                                             {"Shawwal", "Şevval"},
                                             {"Dhu al-Qadah", "Zilkade"},
                                             {"Dhu al-Hijjah", "Zilhicce"}}};

constexpr std::array<Pair, 12> kRumiMonths{{{"March", "Mart"},
                                            {"April", "Nisan"},
                                            {"May", "Mayıs"},
                                            {"June", "Haziran"},
                                            {"July", "Temmuz"},
                                            {"August", "Ağustos"},
                                            {"September", "Eylül"},
                                            {"October", "Teşrin-i Evvel"},
                                            {"November", "Teşrin-i Sani"},
                                            {"December", "Kânun-ı Evvel"},
                                            {"January", "Kânun-ı Sani"},
                                            {"February", "Şubat"}}};

constexpr std::array<Pair, 7> kWeekdays{{{"Sunday", "Pazar"},
                                         {"Monday", "Pazartesi"},
                                         {"Tuesday", "Salı"},
                                         {"Wednesday", "Çarşamba"},
                                         {"Thursday", "Perşembe"},
                                         {"Friday", "Cuma"},
                                         {"Saturday", "Cumartesi"}}};

template <std::size_t Size>
std::string_view entry(const std::array<Pair, Size>& table, int index, Language language) {
    const bool valid = index >= 0 && index < static_cast<int>(Size);
    return valid ? table[static_cast<std::size_t>(index)].in(language) : std::string_view();
}
} // namespace

std::string_view word(Word which, Language language) {
    return entry(kWords, static_cast<int>(which), language);
}

std::string_view correctionText(almanac::Correction correction, Language language) {
    const int which = static_cast<int>(Word::beforeMidnight) + static_cast<int>(correction);
    return word(static_cast<Word>(which), language);
}

std::string_view monthName(unsigned month, Language language) {
    return entry(kMonths, static_cast<int>(month) - 1, language);
}

std::string_view hijriMonthName(int month, Language language) {
    return entry(kHijriMonths, month - 1, language);
}

std::string_view rumiMonthName(int month, Language language) {
    return entry(kRumiMonths, month - 1, language);
}

std::string_view weekdayName(int weekday, Language language) {
    return entry(kWeekdays, weekday, language);
}

std::string dayAndMonth(Date date, Language language) {
    return fmt::format("{} {}", static_cast<unsigned>(date.day()),
                       monthName(static_cast<unsigned>(date.month()), language));
}

std::string longDate(Date date, Language language) {
    const std::chrono::weekday weekday{std::chrono::sys_days(date)};
    return fmt::format("{} {}, {}", dayAndMonth(date, language), static_cast<int>(date.year()),
                       weekdayName(static_cast<int>(weekday.c_encoding()), language));
}

std::string hijriText(const AllCalendarRecord& calendars, Language language) {
    if (calendars.hijriYear < 1) {
        return {};
    }
    return fmt::format("{} {} {}", calendars.hijriDay, hijriMonthName(calendars.hijriMonth, language),
                       calendars.hijriYear);
}

std::string rumiText(const AllCalendarRecord& calendars, Language language) {
    return fmt::format("{} {} {}", calendars.rumiDay, rumiMonthName(calendars.rumiMonth, language),
                       calendars.rumiYear);
}

std::string durationText(std::chrono::seconds duration, Language language) {
    const auto minutes = std::chrono::floor<std::chrono::minutes>(duration).count();
    if (minutes < 1) {
        return std::string(word(Word::lessThanAMinute, language));
    }
    auto minuteText = fmt::format("{} {}", minutes % 60, word(Word::minutesShort, language));
    if (minutes < 60) {
        return minuteText;
    }
    const auto hourText = fmt::format("{} {}", minutes / 60, word(Word::hoursShort, language));
    return minutes % 60 == 0 ? hourText : hourText + ' ' + minuteText;
}

} // namespace zorel::cli
