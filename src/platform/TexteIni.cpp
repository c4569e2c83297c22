#include "platform/TexteIni.h"

#include "platform/PageDeCode.h"

#include <QHash>

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
        if (endroit.section && cle && contenu.genre == Contenu::Cle && cle->Est(contenu.nom)) {
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

/// Calls `visiter` with each line of the first section of that name, the one with its name first.
void ParcourirLignes(QByteArrayView texte, const Nom& section,
                     const std::function<void(const Ligne& ligne, const Contenu& contenu)>& visiter)
{
    bool dedans = false;
    for (qsizetype debut = 0; debut < texte.size();) {
        const Ligne ligne = LigneA(texte, debut);
        const Contenu contenu = Analyser(texte, ligne);
        debut = ligne.suite;
        if (contenu.genre == Contenu::Section) {
            if (dedans)
                return;
            dedans = section.Est(contenu.nom);
        }
        if (dedans)
            visiter(ligne, contenu);
    }
}

/// A name in the case that names are compared in.
QString Plie(QByteArrayView nom)
{
    QString texte = PageDeCode::VersTexte(nom);
    for (QChar& c : texte)
        c = c.toCaseFolded();
    return texte;
}

/// Keys and values as a file holds them, on their way there.
class LignesAEcrire
{
public:
    /// Nothing when a file cannot hold one of them.
    static std::optional<LignesAEcrire> De(const Cles& cles)
    {
        LignesAEcrire lignes;
        lignes.m_lignes.reserve(cles.size());
        lignes.m_places.reserve(static_cast<qsizetype>(cles.size()));
        for (const auto& [cle, valeur] : cles) {
            const Nom nom(cle);
            const QByteArray octets = PageDeCode::VersOctets(valeur);
            const QByteArrayView ecrite = JusquAuNul(octets);
            if (!EstNomDeCle(nom.octets) || !TientSurUneLigne(ecrite))
                return std::nullopt;
            const size_t place = lignes.m_places.value(Plie(nom.octets), lignes.m_lignes.size());
            if (place == lignes.m_lignes.size()) {
                lignes.m_places.insert(Plie(nom.octets), place);
                lignes.m_lignes.push_back({nom.octets.toByteArray(), {}});
            }
            lignes.m_lignes[place].valeur = ecrite.toByteArray();
        }
        lignes.m_reste = lignes.m_lignes.size();
        return lignes;
    }

    qsizetype Taille() const
    {
        qsizetype taille = 0;
        for (const UneLigne& ligne : m_lignes)
            taille += ligne.nom.size() + ligne.valeur.size() + 3;
        return taille;
    }

    /// The value for the key at hand, for the first line that has its name; null when none is to be written there.
    const QByteArray* Prendre(QByteArrayView nom)
    {
        const auto place = m_places.constFind(Plie(nom));
        if (place == m_places.cend() || m_lignes[*place].ecrite)
            return nullptr;
        m_lignes[*place].ecrite = true;
        --m_reste;
        return &m_lignes[*place].valeur;
    }

    /// Whether there are keys that have no line yet.
    bool Reste() const { return m_reste > 0; }
    void AjouterReste(QByteArray& texte, QByteArrayView fin) const
    {
        for (const UneLigne& ligne : m_lignes) {
            if (!ligne.ecrite)
                texte += Concat({ligne.nom, "=", ligne.valeur, fin});
        }
    }

private:
    struct UneLigne
    {
        QByteArray nom;
        QByteArray valeur;
        bool ecrite = false;
    };
    std::vector<UneLigne> m_lignes;
    QHash<QString, size_t> m_places;
    size_t m_reste = 0;
};

} // namespace

std::optional<QString> Lire(QByteArrayView texte, QStringView section, QStringView cle)
{
    const Nom nomCle(cle);
    const Endroit endroit = Trouver(texte, Nom(section), &nomCle);
    return endroit.cle ? std::optional(Valeur(endroit.contenu.valeur)) : std::nullopt;
}

QString Valeur(QByteArrayView octets)
{
    const QByteArrayView valeur = SansGuillemets(octets);
    return PageDeCode::VersTexte(JusquAuNul(valeur.first(std::min(valeur.size(), LongueurMax))));
}

QString CommeRelue(QStringView valeur)
{
    const QByteArray octets = PageDeCode::VersOctets(valeur);
    return Valeur(SansBlancs(JusquAuNul(octets)));
}

void Parcourir(QByteArrayView texte, QStringView section,
               const std::function<void(QByteArrayView cle, QByteArrayView valeur)>& visiter)
{
    ParcourirLignes(texte, Nom(section), [&](const Ligne&, const Contenu& contenu) {
        if (contenu.genre == Contenu::Cle)
            visiter(contenu.nom, contenu.valeur);
    });
}

std::optional<QByteArray> Ecrire(QByteArrayView texte, QStringView section, QStringView cle, QStringView valeur)
{
    return EcrireCles(texte, section, {{cle.toString(), valeur.toString()}});
}

std::optional<QByteArray> EcrireCles(QByteArrayView texte, QStringView section, const Cles& cles)
{
    const Nom nomSection(section);
    std::optional<LignesAEcrire> aEcrire = LignesAEcrire::De(cles);
    if (!EstNomDeSection(nomSection.octets) || !aEcrire)
        return std::nullopt;

    QByteArray ecrit;
    ecrit.reserve(texte.size() + aEcrire->Taille());
    qsizetype copie = 0;           // up to where the text was taken over
    std::optional<Ligne> derniere; // of the section, not blank
    ParcourirLignes(texte, nomSection, [&](const Ligne& ligne, const Contenu& contenu) {
        if (contenu.genre == Contenu::Vide)
            return;
        derniere = ligne;
        if (const QByteArray* valeur = contenu.genre == Contenu::Cle ? aEcrire->Prendre(contenu.nom) : nullptr) {
            ecrit += texte.sliced(copie, ligne.debut - copie);
            ecrit += contenu.nom;
            ecrit += '=';
            ecrit += *valeur;
            copie = ligne.fin;
        }
    });
    const qsizetype place = derniere ? derniere->suite : texte.size();
    const QByteArrayView fin = FinDeLigne(texte);
    ecrit += texte.sliced(copie, place - copie);
    if ((aEcrire->Reste() || !derniere) && !ecrit.isEmpty() && !EstFinDeLigne(ecrit.back()))
        ecrit += fin;
    if (!derniere)
        ecrit += Concat({"[", nomSection.octets, "]", fin});
    aEcrire->AjouterReste(ecrit, fin);
    ecrit += texte.sliced(place);
    return ecrit;
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
