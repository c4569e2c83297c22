#include "kit/MotsLongs.h"

#include <QFontMetrics>
#include <QTextBoundaryFinder>

namespace {

constexpr QChar EspaceSansLargeur(u'\u200B');

/// Calls `faire` with each part of the text between two places where a line may break.
template<typename Faire> void PourChaquePartie(const QString& texte, Faire faire)
{
    QTextBoundaryFinder coupures(QTextBoundaryFinder::Line, texte);
    qsizetype debut = 0;
    for (qsizetype fin = coupures.toNextBoundary(); fin >= 0; fin = coupures.toNextBoundary()) {
        faire(texte.mid(debut, fin - debut));
        debut = fin;
    }
}

/// Blanks at the end of a line need no place.
int Largeur(const QString& partie, const QFontMetrics& mesures)
{
    return mesures.horizontalAdvance(partie.trimmed());
}

QString Coupable(const QString& partie)
{
    QString coupable;
    QTextBoundaryFinder signes(QTextBoundaryFinder::Grapheme, partie);
    qsizetype debut = 0;
    for (qsizetype fin = signes.toNextBoundary(); fin >= 0; fin = signes.toNextBoundary()) {
        if (debut > 0 && !partie.at(debut).isSpace())
            coupable += EspaceSansLargeur;
        coupable += QStringView(partie).mid(debut, fin - debut);
        debut = fin;
    }
    return coupable;
}

} // namespace

int LargeurDuPlusLongMot(const QString& texte, const QFontMetrics& mesures)
{
    int largeur = 0;
    PourChaquePartie(texte, [&](const QString& partie) { largeur = qMax(largeur, Largeur(partie, mesures)); });
    return largeur;
}

QString CouperMotsLongs(const QString& texte, const QFontMetrics& mesures, int largeur)
{
    QString coupe;
    PourChaquePartie(
        texte, [&](const QString& partie) { coupe += Largeur(partie, mesures) > largeur ? Coupable(partie) : partie; });
    return coupe;
}
