#include "vue/PoliceDeTable.h"

#include "base/Const_Vrac.h"
#include "base/Nombres.h"
#include "base/Options.h"
#include "kit/Couleurs.h"

#include <QApplication>
#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace {

constexpr double TailleMin = 1;
constexpr double TailleMax = 200;
constexpr int CouleurMax = 0xFFFFFF;

} // namespace

ReglagesDePolice::ReglagesDePolice()
    : nom(Options::FontName.defaut.toString()), taille(Options::FontSize.defaut), gras(Options::FontBold.defaut),
      italique(Options::FontItalic.defaut), couleur(static_cast<int>(Options::FontColor.defaut))
{
}

ReglagesDePolice LirePolice()
{
    ReglagesDePolice lus;
    lus.nom = LireOption(Options::FontName);
    lus.taille = LireOption(Options::FontSize).value_or(Options::FontSize.defaut);
    lus.gras = LireOption(Options::FontBold);
    lus.italique = LireOption(Options::FontItalic);
    lus.couleur = ArrondirEntier32(LireOption(Options::FontColor).value_or(0)).value_or(0);
    return lus;
}

void EcrirePolice(const ReglagesDePolice& reglages)
{
    EcrireOption(Options::FontBold, reglages.gras);
    EcrireOption(Options::FontItalic, reglages.italique);
    EcrireOption(Options::FontName, reglages.nom);
    EcrireOption(Options::FontSize, reglages.taille);
    EcrireOption(Options::FontColor, reglages.couleur);
}

QFont PoliceDe(const ReglagesDePolice& reglages)
{
    QFont police = QApplication::font();
    const bool installee = QFontDatabase::hasFamily(reglages.nom);
    if (installee)
        police.setFamily(reglages.nom);
    const double taille = reglages.taille;
    if ((installee || taille != Options::FontSize.defaut) && taille >= TailleMin && taille <= TailleMax)
        police.setPointSizeF(taille);
    police.setBold(reglages.gras);
    police.setItalic(reglages.italique);
    return police;
}

std::optional<QColor> CouleurDe(const ReglagesDePolice& reglages)
{
    const int valeur = reglages.couleur;
    if (valeur <= 0 || valeur > CouleurMax)
        return std::nullopt;
    return QColor(valeur & 0xFF, (valeur >> 8) & 0xFF, (valeur >> 16) & 0xFF);
}

QPalette PaletteDExemple(const ReglagesDePolice& reglages)
{
    QPalette couleurs;
    const QColor fond = couleurs.color(QPalette::Base);
    const std::optional<QColor> encre = CouleurDe(reglages);
    couleurs.setColor(QPalette::Window, fond);
    couleurs.setColor(QPalette::WindowText, encre ? EncreLisible(*encre, fond) : couleurs.color(QPalette::Text));
    return couleurs;
}

QFont PoliceDeTable()
{
    return PoliceDe(LirePolice());
}

std::optional<QColor> CouleurDeTable()
{
    return CouleurDe(LirePolice());
}
