#include "platform/TexteIni.h"

#include "platform/PageDeCode.h"

#include <algorithm>

namespace TexteIni {

namespace {

bool EstBlanc(char c)
{
    return c == ' ' || c == '\t';
}
bool EstFinDeLigne(char c)
{
    return c == '\r' || c == '\n';
}

QByteArrayView SansBlancs(QByteArrayView octets)
{
    while (!octets.isEmpty() && EstBlanc(octets.front()))
        octets = octets.sliced(1);
    while (!octets.isEmpty() && EstBlanc(octets.back()))
        octets.chop(1);
    return octets;
}

/// One line: its bytes from `debut` to `fin`, then its end up to `suite`.
struct Ligne
{
    qsizetype debut = 0;
    qsizetype fin = 0;
    qsizetype suite = 0;
};

Ligne LigneA(QByteArrayView texte, qsizetype debut)
{
    const auto fin = std::find_if(texte.begin() + debut, texte.end(), EstFinDeLigne) - texte.begin();
    if (fin == texte.size())
        return {debut, fin, fin};
    const bool crlf = texte[fin] == '\r' && fin + 1 < texte.size() && texte[fin + 1] == '\n';
    return {debut, fin, fin + (crlf ? 2 : 1)};
}

struct Contenu
{
    enum Genre { Vide, Section, Cle, Autre } genre = Vide;
    QByteArrayView nom;
    QByteArrayView valeur;
};

Contenu Analyser(QByteArrayView texte, const Ligne& ligne)
{
    const QByteArrayView octets = SansBlancs(texte.sliced(ligne.debut, ligne.fin - ligne.debut));
    if (octets.isEmpty())
        return {};
    if (octets.front() == ';')
        return {Contenu::Autre, {}, {}};
    if (octets.front() == '[') {
        const qsizetype fin = octets.indexOf(']');
        if (fin < 0)
            return {Contenu::Autre, {}, {}};
        return {Contenu::Section, SansBlancs(octets.sliced(1, fin - 1)), {}};
    }
    const qsizetype egal = octets.indexOf('=');
    if (egal <= 0)
        return {Contenu::Autre, {}, {}};
    return {Contenu::Cle, SansBlancs(octets.first(egal)), SansBlancs(octets.sliced(egal + 1))};
}

/// A name as the file would hold it: in the code page, without blanks around.
struct Nom
{
    explicit Nom(QStringView nom)
        : tampon(PageDeCode::VersOctets(nom)), octets(SansBlancs(tampon)), texte(PageDeCode::VersTexte(octets))
    {
    }
    Nom(const Nom&) = delete;
    Nom& operator=(const Nom&) = delete;

    bool Est(QByteArrayView autre) const
    {
        return autre.size() == octets.size() && PageDeCode::VersTexte(autre).compare(texte, Qt::CaseInsensitive) == 0;
    }

    QByteArray tampon;
    QByteArrayView octets;
    QString texte;
};

/// Where a section and a key in it stand.
struct Endroit
{
    std::optional<Ligne> section;
    qsizetype finSection = 0; ///< where the next section starts, or the end
    Ligne derniere;           ///< the last line of the section that is not blank
    std::optional<Ligne> cle;
    Contenu contenu; ///< of the key's line
};

/// The first section of that name and the first key of that name in it. A null `cle` looks for the section alone, to
/// its end.
Endroit Trouver(QByteArrayView texte, const Nom& section, const Nom* cle)
{
    Endroit endroit;
    endroit.finSection = texte.size();
    for (qsizetype debut = 0; debut < texte.size();) {
        const Ligne ligne = LigneA(texte, debut);
        const Contenu contenu = Analyser(texte, ligne);
        debut = ligne.suite;
        if (contenu.genre == Contenu::Section) {
            if (endroit.section) {
                endroit.finSection = ligne.debut;
                break;
            }
            if (section.Est(contenu.nom))
                endroit.section = ligne;
        }
        if (!endroit.section || contenu.genre == Contenu::Vide)
            continue;
        endroit.derniere = ligne;
        if (cle && contenu.genre == Contenu::Cle && cle->Est(contenu.nom)) {
            endroit.cle = ligne;
            endroit.contenu = contenu;
            break;
        }
    }
    return endroit;
}

QByteArrayView SansGuillemets(QByteArrayView valeur)
{
    if (valeur.size() < 2 || valeur.front() != valeur.back())
        return valeur;
    const bool entoure = valeur.front() == '"' || valeur.front() == '\'';
    return entoure ? valeur.sliced(1, valeur.size() - 2) : valeur;
}

/// What stands before the first NUL, where a text ends for the readers of ini files.
QByteArrayView JusquAuNul(QByteArrayView octets)
{
    const qsizetype nul = octets.indexOf('\0');
    return nul < 0 ? octets : octets.first(nul);
}

bool TientSurUneLigne(QByteArrayView octets)
{
    return std::none_of(octets.begin(), octets.end(), EstFinDeLigne);
}

bool EstNomDeSection(QByteArrayView nom)
{
    return TientSurUneLigne(nom) && !nom.contains(']') && !nom.contains('\0');
}

bool EstNomDeCle(QByteArrayView nom)
{
    return !nom.isEmpty() && TientSurUneLigne(nom) && !nom.contains('=') && !nom.contains('\0') && nom.front() != '[' &&
           nom.front() != ';';
}

/// The end that lines of this text have, by its first one.
QByteArrayView FinDeLigne(QByteArrayView texte)
{
    const Ligne ligne = LigneA(texte, 0);
    return ligne.suite > ligne.fin ? texte.sliced(ligne.fin, ligne.suite - ligne.fin) : QByteArrayView("\r\n");
}

QByteArray Concat(std::initializer_list<QByteArrayView> morceaux)
{
    QByteArray resultat;
    qsizetype taille = 0;
    for (const QByteArrayView morceau : morceaux)
        taille += morceau.size();
    resultat.reserve(taille);
    for (const QByteArrayView morceau : morceaux)
        resultat.append(morceau);
    return resultat;
}

/// Puts a line in behind `position`, which is where a line ends or the end of a text whose last line has no end.
QByteArray Inserer(QByteArrayView texte, qsizetype position, QByteArrayView ligne)
{
    const QByteArrayView fin = FinDeLigne(texte);
    const bool ouverte = position > 0 && !EstFinDeLigne(texte[position - 1]);
    return Concat({texte.first(position), ouverte ? fin : QByteArrayView(), ligne, fin, texte.sliced(position)});
}

} // namespace

std::optional<QString> Lire(QByteArrayView texte, QStringView section, QStringView cle)
{
    const Nom nomCle(cle);
    const Endroit endroit = Trouver(texte, Nom(section), &nomCle);
    if (!endroit.cle)
        return std::nullopt;
    const QByteArrayView valeur = SansGuillemets(endroit.contenu.valeur);
    return PageDeCode::VersTexte(JusquAuNul(valeur.first(std::min(valeur.size(), LongueurMax))));
}

std::optional<QByteArray> Ecrire(QByteArrayView texte, QStringView section, QStringView cle, QStringView valeur)
{
    const Nom nomSection(section);
    const Nom nomCle(cle);
    const QByteArray octets = PageDeCode::VersOctets(valeur);
    const QByteArrayView ecrite = JusquAuNul(octets);
    if (!EstNomDeSection(nomSection.octets) || !EstNomDeCle(nomCle.octets) || !TientSurUneLigne(ecrite))
        return std::nullopt;

    const Endroit endroit = Trouver(texte, nomSection, &nomCle);
    if (endroit.cle) {
        return Concat(
            {texte.first(endroit.cle->debut), endroit.contenu.nom, "=", ecrite, texte.sliced(endroit.cle->fin)});
    }
    const QByteArray ligne = Concat({nomCle.octets, "=", ecrite});
    if (endroit.section)
        return Inserer(texte, endroit.derniere.suite, ligne);
    const QByteArray avecSection = Inserer(texte, texte.size(), Concat({"[", nomSection.octets, "]"}));
    return Inserer(avecSection, avecSection.size(), ligne);
}

QByteArray SupprimerCle(QByteArrayView texte, QStringView section, QStringView cle)
{
    const Nom nomCle(cle);
    const Endroit endroit = Trouver(texte, Nom(section), &nomCle);
    if (!endroit.cle)
        return texte.toByteArray();
    return Concat({texte.first(endroit.cle->debut), texte.sliced(endroit.cle->suite)});
}

QByteArray SupprimerSection(QByteArrayView texte, QStringView section)
{
    const Endroit endroit = Trouver(texte, Nom(section), nullptr);
    if (!endroit.section)
        return texte.toByteArray();
    return Concat({texte.first(endroit.section->debut), texte.sliced(endroit.finSection)});
}

} // namespace TexteIni
