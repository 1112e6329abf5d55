// SPDX-License-Identifier: Apache-2.0
#include "host/Words.h"

#include <array>

namespace zorel {

namespace {

struct Entry {
    const char* key;
    const char* english;
    const char* turkish;
};

constexpr Entry kTable[] = {
    {"delete", "Delete", "Sil"},
    {"deleteCity", "Delete %1", "Sil: %1"},
    {"deleted", "%1 is deleted", "%1 siliniyor"},
    {"edit", "Edit", "Düzenle"},
    {"done", "Done", "Bitti"},
    {"undo", "Undo", "Geri al"},
    {"back", "Back", "Geri"},
    {"close", "Close", "Kapat"},
    {"copy", "Copy", "Kopyala"},
    {"copied", "Copied", "Kopyalandı"},
    {"clear", "Clear", "Temizle"},
    {"nothingFound", "Nothing found", "Sonuç bulunamadı"},
    {"threeLetters", "three letters, please", "lütfen üç harf"},
    {"resultCount", "%1 places found", "%1 yer bulundu"},
    {"oneResult", "One place found", "Bir yer bulundu"},
    // First start.
    {"whatThisIs", "Zorel tells the prayer times of your city and can wake you for them.",
     "Zorel şehrinizin namaz vakitlerini söyler, isterseniz vakitlerde sizi uyarır."},
    {"whereDoYouPray", "Where do you pray?", "Nerede namaz kılıyorsunuz?"},
    {"searchCity", "Search for another city", "Başka bir şehir ara"},
    {"homeNow", "%1 is your home city now", "Ana şehriniz artık %1"},
    {"homeCity", "Home city", "Ana şehir"},
    {"added", "%1 is in your list now", "%1 listenize eklendi"},
    {"inCity", "You seem to be in %1. Use it?", "%1 şehrindesiniz gibi görünüyor. Kullanılsın mı?"},
    {"use", "Use it", "Kullan"},
    {"notNow", "No", "Hayır"},
    // Today.
    {"today", "Today", "Bugün"},
    {"nextPrayer", "Next prayer", "Sıradaki namaz"},
    {"nextTime", "Next", "Sıradaki"},
    {"in", "in %1", "%1 sonra"},
    {"tomorrow", "tomorrow", "yarın"},
    {"yesterday", "the evening before", "önceki akşam"},
    {"hoursMinutes", "%1 h %2 min", "%1 sa %2 dk"},
    {"minutes", "%1 min", "%1 dk"},
    {"seconds", "%1 s", "%1 sn"},
    {"days", "%1 days", "%1 gün"},
    {"passed", "passed", "geçti"},
    // Alarms.
    {"off", "off", "kapalı"},
    {"rings", "rings %1 %2", "%1 %2 çalar"},
    {"skips", "skips %1 %2", "%1 %2 atlanır"},
    {"pausedUntil", "paused until %1", "%1 gününe kadar duraklatıldı"},
    {"todayWord", "today", "bugün"},
    {"noTimeUntil", "no such time until %1", "%1 gününe kadar bu vakit yok"},
    {"noSuchTimeAhead", "no such time ahead", "bu vakit yok"},
    {"willNotRing", "will not ring: %1", "çalmayacak: %1"},
    {"nextIsOff", "Its alarm is off", "Alarmı kapalı"},
    {"offRests", "Off. Switch it on to choose when and how it rings.",
     "Kapalı. Ne zaman ve nasıl çalacağını seçmek için açın."},
    {"listen", "Listen", "Dinle"},
    {"silence", "Stop", "Durdur"},
    {"toneFailed", "The ringtone could not be played.", "Zil sesi çalınamadı."},
    {"alarmOf", "Alarm %1", "%1 alarmı"},
    {"repair", "Repair", "Onar"},
    {"nobodyRings", "Alarms may not ring: the ring service is not running.",
     "Alarmlar çalmayabilir: çalma hizmeti çalışmıyor."},
    {"start", "Start it", "Başlat"},
    {"now", "now", "şimdi"},
    {"next", "next", "sıradaki"},
    {"none", "none", "yok"},
    {"otherTimes", "Other times", "Diğer vakitler"},
    {"noTimes", "The times of %1 cannot be told: the city catalogue does not have it.",
     "%1 vakitleri söylenemiyor: şehir kataloğunda yok."},
    {"noCatalogue", "The times of %1 cannot be told: the city catalogue cannot be read.",
     "%1 vakitleri söylenemiyor: şehir kataloğu okunamıyor."},
    {"listBusy", "Another program is at work on your cities. They will be here in a moment.",
     "Başka bir program şehirlerinizle çalışıyor. Birazdan burada olacaklar."},
    {"listUnreadable", "Your cities and alarms cannot be read, so no times are shown. Nothing was changed.",
     "Şehirleriniz ve alarmlarınız okunamıyor; bu yüzden vakit gösterilmiyor. Hiçbir şey değiştirilmedi."},
    {"tryAgain", "Try again", "Yeniden dene"},
    {"searchUnreadable", "The city catalogue cannot be read.", "Şehir kataloğu okunamıyor."},
    {"dayBar", "The day from midnight to midnight", "Gece yarısından gece yarısına gün"},
    {"moon", "Moon %1", "Ay %1"},
    {"new moon", "new", "yeni ay"},
    {"full moon", "full", "dolunay"},
    {"first quarter", "first quarter", "ilk dördün"},
    {"last quarter", "last quarter", "son dördün"},
    {"phaseToday", "%1 today", "bugün %1"},
    {"phaseIn", "%1 in %2", "%2 sonra %1"},
    {"day", "1 day", "1 gün"},
    {"qibla", "Qibla %1", "Kıble %1"},
    {"sunThere", "Sun there at %1", "Güneş orada: %1"},
    {"fromNorth", "from true north", "gerçek kuzeyden"},
    {"everyDirection", "Every direction", "Her yön"},
    // Names of the times that the pane has no label for.
    {"last_sixth_of_night", "Last sixth of the night", "Gecenin son altıda biri"},
    {"before_noon", "Before noon: no prayer", "Kerahat (öğleden önce)"},
    {"isha_second", "Second Isha", "Işâ-i sânî"},
    {"first_third_of_night", "First third of the night", "Gecenin ilk üçte biri"},
    {"middle_of_night", "Middle of the night", "Gece yarısı"},
    // Why a time is what it is.
    {"why", "Why %1?", "Neden %1?"},
    {"sunBelow", "The Sun stands %1° below the horizon.", "Güneş ufkun %1° altındadır."},
    {"sunAbove", "The Sun stands %1° above the horizon.", "Güneş ufkun %1° üstündedir."},
    {"sunAtHorizonMorning", "The Sun rises.", "Güneş doğar."},
    {"sunAtHorizonEvening", "The Sun sets.", "Güneş batar."},
    {"shadowOnce", "A shadow is longer than at noon by the length of what casts it.",
     "Gölge öğlekinden, cismin kendi boyu kadar uzundur."},
    {"shadowTwice", "A shadow is longer than at noon by twice the length of what casts it.",
     "Gölge öğlekinden, cismin boyunun iki katı kadar uzundur."},
    {"sunHighest", "The Sun stands highest.", "Güneş en yüksektedir."},
    {"partAfter", "1/%1 of the night after %2.", "%2 vaktinden gecenin 1/%1 kadarı sonra."},
    {"partBefore", "1/%1 of the night before %2.", "%2 vaktinden gecenin 1/%1 kadarı önce."},
    {"precautionLater", "%1 added as a precaution (temkin).", "İhtiyat için (temkin) %1 eklendi."},
    {"precautionEarlier", "%1 taken off as a precaution (temkin).", "İhtiyat için (temkin) %1 çıkarıldı."},
    {"additionLater", "%1 added by the rule.", "Kural gereği %1 eklendi."},
    {"additionEarlier", "%1 taken off by the rule.", "Kural gereği %1 çıkarıldı."},
    {"roundedLater", "Exactly %1; shown as %2, the next minute, so that nobody prays too early.",
     "Tam olarak %1; kimse vaktinden önce kılmasın diye sonraki dakika, %2, gösterilir."},
    {"roundedEarlier", "Exactly %1; shown as %2, the minute before, so that nobody is late.",
     "Tam olarak %1; kimse geç kalmasın diye önceki dakika, %2, gösterilir."},
    {"exactly", "Exactly %1.", "Tam olarak %1."},
    {"lowered", "The Sun does not rise or set there that day: computed at %1° of latitude.",
     "Güneş o gün orada doğmuyor ya da batmıyor: %1° enlemde hesaplandı."},
    {"takenFrom", "The sky does not get dark enough: taken from %1.",
     "Gök yeterince kararmıyor: %1 gününden alındı."},
    {"noSuchTime", "There is no such time that day.", "O gün böyle bir vakit yok."},
    {"before_midnight", "It lies before midnight, on the evening before.",
     "Gece yarısından önce, bir önceki akşamdadır."},
    {"seam_of_days", "Judged by the Sun of this very day.", "Bu günün kendi Güneşine göre."},
    {"own_sun", "Taken from the Sun of this very day.", "Bu günün kendi Güneşinden alındı."},
    {"date_line", "The clock there is a day away from its meridian.",
     "Oranın saati boylamından bir gün uzaktadır."},
    {"night_without_ends", "That night has no beginning or no end.", "O gecenin başı ya da sonu yok."},
    {"sun_still_up", "Moved to where the Sun is really down (or up).",
     "Güneşin gerçekten battığı (ya da doğduğu) ana alındı."},
    {"clock_change", "The clock changes that day: told by the clock then in force.",
     "O gün saat değişiyor: o an geçerli saatle söylendi."},
    {"out_of_order", "Taken from an earlier day it would stand out of its order.",
     "Daha önceki bir günden alınsa sırası bozulurdu."},
    {"true_qibla", "Towards the Kaaba itself.", "Kâbe'nin kendisine doğru."},
};

} // namespace

QString Words::operator()(const QString& key) const {
    for (const Entry& entry : kTable) {
        if (key == QLatin1String(entry.key)) {
            return QString::fromUtf8(turkish_ ? entry.turkish : entry.english);
        }
    }
    return key;
}

QVariantMap Words::map() const {
    QVariantMap all;
    for (const Entry& entry : kTable) {
        all.insert(QLatin1String(entry.key), QString::fromUtf8(turkish_ ? entry.turkish : entry.english));
    }
    return all;
}

} // namespace zorel
