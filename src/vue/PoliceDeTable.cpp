#include "vue/PoliceDeTable.h"

#include "base/Const_Vrac.h"
#include "base/Nombres.h"
#include "base/Options.h"

#include <QApplication>
#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace {

constexpr double TailleParDefaut = 8.25;
constexpr double TailleMin = 1;
constexpr double TailleMax = 200;
constexpr int CouleurMax = 0xFFFFFF;

} // namespace

QFont PoliceDeTable()
{
    QFont police = QApplication::font();
    const QString famille = LireOption(Options::FontName);
    const bool installee = QFontDatabase::hasFamily(famille);
    if (installee)
        police.setFamily(famille);
    const double taille = LireOption(Options::FontSize).value_or(TailleParDefaut);
    if ((installee || taille != TailleParDefaut) && taille >= TailleMin && taille <= TailleMax)
        police.setPointSizeF(taille);
    police.setBold(LireOption(Options::FontBold));
    police.setItalic(LireOption(Options::FontItalic));
    return police;
}

std::optional<QColor> CouleurDeTable()
{
    const int valeur = ArrondirEntier32(LireOption(Options::FontColor).value_or(0)).value_or(0);
    if (valeur <= 0 || valeur > CouleurMax)
        return std::nullopt;
    return QColor(valeur & 0xFF, (valeur >> 8) & 0xFF, (valeur >> 16) & 0xFF);
}
