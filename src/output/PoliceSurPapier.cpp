#include "output/PoliceSurPapier.h"

#include <QFontDatabase>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double PointsParPouce = 72;
constexpr QStringView TresGrasse = u"Arial Black";
constexpr QStringView Ordinaire = u"Arial";

} // namespace

QFont PoliceSurPapier(const PoliceDePage& police)
{
    // Few systems have this family, and what they would put in its place is thin: its sister in bold is nearer.
    const bool remplacer = police.nom == TresGrasse && !QFontDatabase::hasFamily(police.nom);
    QFont font(remplacer ? Ordinaire.toString() : police.nom);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(police.taille * UnitesParPouce / PointsParPouce))));
    font.setWeight(remplacer ? QFont::Black : police.gras ? QFont::Bold : QFont::Normal);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

void MesureSurPapier::Choisir(const PoliceDePage& police)
{
    if (m_choisie && m_choisie->police == police)
        return;
    const auto connue = std::ranges::find(m_polices, police, [](const auto& mesuree) { return mesuree->police; });
    if (connue != m_polices.end()) {
        m_choisie = connue->get();
        return;
    }
    m_polices.push_back(std::make_unique<Mesuree>(Mesuree{police, QFontMetricsF(PoliceSurPapier(police)), {}}));
    m_choisie = m_polices.back().get();
    m_choisie->largeurs.fill(-1);
}

double MesureSurPapier::Largeur(QStringView texte) const
{
    double largeur = 0;
    for (const QChar signe : texte) {
        if (signe.unicode() >= SignesSimples)
            return m_choisie->mesures.horizontalAdvance(texte.toString()) / UnitesParMm;
        float& connue = m_choisie->largeurs[signe.unicode()];
        if (connue < 0)
            connue = static_cast<float>(m_choisie->mesures.horizontalAdvance(signe));
        largeur += connue;
    }
    return largeur / UnitesParMm;
}

double MesureSurPapier::Hauteur() const
{
    return m_choisie->mesures.height() / UnitesParMm;
}
