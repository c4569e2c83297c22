#include "DevinerCsv.h"

#include "ValeurCsv.h"

#include <ZelvanePlugin.h>

#include <QBuffer>
#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LignesDApercu = 200;
constexpr qsizetype OctetsDApercu = 1 << 20;
constexpr qsizetype OctetsDEssai = 1 << 18;

/// The most frequent number of fields, and how many rows have it.
struct Largeur
{
    qsizetype champs = 0;
    qsizetype lignes = 0;
};

Largeur LargeurUsuelle(QList<LigneCsv>::const_iterator debut, QList<LigneCsv>::const_iterator fin)
{
    QHash<qsizetype, qsizetype> comptes;
    Largeur usuelle;
    for (auto ligne = debut; ligne != fin; ++ligne) {
        const qsizetype lignes = ++comptes[ligne->nombre];
        if (lignes > usuelle.lignes || (lignes == usuelle.lignes && ligne->nombre > usuelle.champs))
            usuelle = {ligne->nombre, lignes};
    }
    return usuelle;
}

bool EstNombre(const QString& texte)
{
    // Amounts and dates too.
    static const QString signes = u"+-.,:/€$%"_s;
    return std::ranges::any_of(texte, [](QChar c) { return c.isDigit(); }) &&
           std::ranges::all_of(texte, [](QChar c) { return c.isDigit() || c.isSpace() || signes.contains(c); });
}

/// Titles are names: no numbers, no two alike, and none that comes again in its column.
bool EstEntete(const ApercuCsv& apercu)
{
    if (apercu.lignes.isEmpty())
        return false;
    QSet<QString> vus;
    const QStringList& premiere = apercu.lignes.constFirst().champs;
    for (const QString& champ : premiere) {
        const QString titre = champ.simplified().toCaseFolded();
        if (EstNombre(titre) || (!titre.isEmpty() && vus.contains(titre)))
            return false;
        vus.insert(titre);
    }
    for (auto ligne = apercu.lignes.cbegin() + 1; ligne != apercu.lignes.cend(); ++ligne) {
        for (qsizetype i = 0; i < std::min(premiere.size(), ligne->champs.size()); ++i) {
            if (!premiere[i].isEmpty() && ligne->champs[i] == premiere[i])
                return false;
        }
    }
    return !(vus.size() == 1 && vus.contains(QString()));
}

/// How alike the rows of a format are, from 0 to 2: rows of several columns, of which the first has as many, come
/// first.
double Ressemblance(const QList<LigneCsv>& lignes)
{
    if (lignes.isEmpty())
        return 0;
    const Largeur usuelle = LargeurUsuelle(lignes.cbegin(), lignes.cend());
    qsizetype gates = 0;
    for (const LigneCsv& ligne : lignes)
        gates += ligne.defauts == SansDefaut ? 0 : 1;
    const auto nombre = static_cast<double>(lignes.size());
    const double points = static_cast<double>(usuelle.lignes) / nombre +
                          (lignes.constFirst().nombre == usuelle.champs ? 0.5 : 0) -
                          static_cast<double>(gates) / nombre;
    return usuelle.champs >= 2 ? points + 0.5 : points / 2;
}

QList<QChar> Separateurs(const QString& extension)
{
    // The rarer a character is in texts, the sooner it is taken.
    QList<QChar> separateurs = {u'\t', u';', u'|', u','};
    if (extension == "csv"_L1)
        separateurs = {u';', u'\t', u'|', u','};
    return separateurs;
}

/// Quotes that stand around whole fields.
qsizetype ChampsEntre(const QList<LigneCsv>& lignes, QChar guillemet)
{
    qsizetype nombre = 0;
    for (const LigneCsv& ligne : lignes) {
        nombre += std::ranges::count_if(ligne.champs, [&](const QString& champ) {
            return champ.size() >= 2 && champ.startsWith(guillemet) && champ.endsWith(guillemet);
        });
    }
    return nombre;
}

/// What speaks for the quotes of a format beside how alike its rows are: that there are any around fields.
double Penchant(QIODevice& texte, const FormatCsv& format)
{
    if (format.guillemet == u'"')
        return 0;
    const QList<LigneCsv> nues = LireApercu(texte, {format.codage, format.separateur, QChar(), true}).lignes;
    const bool doubles = ChampsEntre(nues, u'"') > 0;
    const bool simples = ChampsEntre(nues, u'\'') > 0;
    // Apostrophes open many a word.
    if (format.guillemet == u'\'')
        return simples && !doubles ? 0.1 : -2;
    return doubles || simples ? -0.3 : 0;
}

/// `titre`, or it with the first number that makes it another than all so far.
QString Distinct(const QString& titre, QSet<QString>& pris, QHash<QString, int>& numeros)
{
    QString distinct = titre;
    int& numero = numeros[titre];
    while (pris.contains(distinct)) {
        numero = std::max(2, numero + 1);
        distinct = u"%1 (%2)"_s.arg(titre).arg(numero);
    }
    pris.insert(distinct);
    return distinct;
}

} // namespace

ApercuCsv LireApercu(QIODevice& texte, const FormatCsv& format)
{
    texte.seek(0);
    QByteArray octets = texte.read(OctetsDApercu);
    const bool tout = texte.atEnd();
    QBuffer debut(&octets);
    debut.open(QIODevice::ReadOnly);
    LecteurCsv lecteur(debut, format);
    ApercuCsv apercu;
    LigneCsv ligne;
    while (apercu.lignes.size() < LignesDApercu && lecteur.Lire(ligne)) {
        if (!ligne.EstVide())
            apercu.lignes.append(ligne);
    }
    // The last one goes on behind what was read.
    if (!tout && apercu.lignes.size() < LignesDApercu && apercu.lignes.size() > 1)
        apercu.lignes.removeLast();
    const bool avecEntete = format.entete && apercu.lignes.size() > 1;
    const auto premiere = apercu.lignes.cbegin() + (avecEntete ? 1 : 0);
    apercu.colonnes = LargeurUsuelle(premiere, apercu.lignes.cend()).champs;
    if (format.entete && !apercu.lignes.isEmpty()) {
        QStringList titres = apercu.lignes.constFirst().champs;
        while (titres.size() > apercu.colonnes && titres.constLast().trimmed().isEmpty())
            titres.removeLast();
        apercu.colonnes = std::max(apercu.colonnes, titres.size());
    }
    apercu.colonnes = std::min(apercu.colonnes, LecteurCsv::ChampsAuPlus);
    return apercu;
}

FormatCsv DevinerFormat(QIODevice& texte, const QString& extension)
{
    return DevinerFormat(texte, extension, DevinerCodage(texte));
}

FormatCsv DevinerFormat(QIODevice& texte, const QString& extension, CodageCsv codage)
{
    texte.seek(0);
    QByteArray octets = texte.read(OctetsDEssai);
    if (!texte.atEnd()) {
        // Up to the end of a line: half a row is like no other.
        const qsizetype bout = std::max(octets.lastIndexOf('\n'), octets.lastIndexOf('\r'));
        if (bout > 0)
            octets.truncate(bout + (codage == CodageCsv::Utf16Le ? 2 : 1));
    }
    QBuffer debut(&octets);
    debut.open(QIODevice::ReadOnly);

    FormatCsv meilleur{codage, extension == "tsv"_L1 ? QChar(u'\t') : QChar(u','), u'"', true};
    double points = -1;
    for (const QChar guillemet : {QChar(u'"'), QChar(), QChar(u'\'')}) {
        for (const QChar separateur : Separateurs(extension)) {
            const FormatCsv essai{codage, separateur, guillemet, true};
            const QList<LigneCsv> lignes = LireApercu(debut, essai).lignes;
            const double siens = Ressemblance(lignes) + Penchant(debut, essai);
            if (siens > points + 1e-9) {
                points = siens;
                meilleur = essai;
            }
        }
    }
    if (points <= 0.75 + 1e-9 && LireApercu(debut, meilleur).colonnes < 2)
        meilleur.separateur = extension == "tsv"_L1 ? u'\t' : u',';
    meilleur.entete = EstEntete(LireApercu(debut, meilleur));
    return meilleur;
}

QStringList TitresDeColonnes(const ApercuCsv& apercu, bool entete)
{
    QStringList titres;
    titres.reserve(apercu.colonnes);
    QSet<QString> pris;
    QHash<QString, int> numeros;
    const QStringList lus = entete && !apercu.lignes.isEmpty() ? apercu.lignes.constFirst().champs : QStringList();
    for (qsizetype i = 0; i < apercu.colonnes; ++i) {
        const QString titre = TitreTenable(lus.value(i));
        titres.append(
            Distinct(titre.isEmpty() ? zelvane::LangMsg(u"plugCsvColonne"_s, u"Colonne %1"_s).arg(i + 1) : titre, pris,
                     numeros));
    }
    return titres;
}

qsizetype ColonneDImages(const ApercuCsv& apercu, bool entete, const QString& dossier)
{
    for (qsizetype i = 0; i < apercu.colonnes; ++i) {
        bool images = false;
        bool autres = false;
        for (qsizetype j = entete ? 1 : 0; j < apercu.lignes.size(); ++j) {
            const QString champ = apercu.lignes[j].champs.value(i);
            autres = autres || (!champ.isEmpty() && !EstCheminDImage(champ));
            images = images || (!autres && !FichierDuChemin(champ, dossier).isEmpty());
        }
        if (images && !autres)
            return i;
    }
    return -1;
}
