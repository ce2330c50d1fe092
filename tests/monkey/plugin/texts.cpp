#include "texts.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{

constexpr int longest = 300;

const std::array lines = {u""_s,
                          u" "_s,
                          u"0"_s,
                          u"7"_s,
                          u"-1"_s,
                          u"1,5"_s,
                          u"1e3"_s,
                          u"32767"_s,
                          u"32768"_s,
                          u"99999999999999999999"_s,
                          u"La forêt de l'été : « où ? »"_s,
                          u"e\u0301le\u0300ve"_s,
                          u"\u20AC \u0153 \u2026 \u6F22 \U0001F600 \u202E"_s,
                          u"\""_s,
                          u"'\"]]) os.exit() --"_s,
                          u"\\\" \\n \\0 %s%n"_s,
                          u"[Jeu]"_s,
                          u"nom=;#"_s,
                          u"a|b | Valeur de départ : <b>&amp;</b>"_s,
                          u"../../outside"_s,
                          u"/tmp/outside"_s,
                          u".."_s,
                          u"con."_s};

const std::array names = {u"Untitled"_s, u"Vallée"_s, u"Désert du \"Nord\""_s, u"a"_s, u"Île [2] = ; x"_s};

QString longText(Chance& chance)
{
    const QString letters = u"aeiou éèçàü\"'\\=[];:/.,0123456789€"_s;
    QString text;
    for (int length = chance.between(1, longest); text.size() < length;) {
        text += chance.of(letters);
    }
    return text;
}

} // namespace

QString anyText(Chance& chance)
{
    return chance.percent(20) ? longText(chance) : chance.of(lines);
}

QString projectName(Chance& chance)
{
    return chance.percent(80) ? chance.of(names) : anyText(chance);
}
