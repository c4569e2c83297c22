#include "cli/CommandeExport.h"

#include "cli/Catalogue.h"
#include "cli/Console.h"
#include "cli/ListeDOption.h"
#include "output/EcrireExport.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const std::array<std::pair<QString, GenreExport>, 5>& Genres()
{
    static const std::array<std::pair<QString, GenreExport>, 5> genres{{
        {u"html-images"_s, GenreExport::PageAvecImages},
        {u"html"_s, GenreExport::PageSansImages},
        {u"text"_s, GenreExport::TexteEncadre},
        {u"csv"_s, GenreExport::PointsVirgules},
        {u"tab"_s, GenreExport::Tabulations},
    }};
    return genres;
}

std::optional<GenreExport> GenreDe(const QString& nom)
{
    for (const auto& [connu, genre] : Genres()) {
        if (connu == nom)
            return genre;
    }
    return std::nullopt;
}

/// Lists of the command line. Once the catalogue is there, what they name can be looked for.
struct Listes
{
    std::optional<ListeDeNombres> colonnes;
    std::optional<ListeDeNombres> entrees;
};

/// Takes what the lists name into the choice and the selection; false, with a word, when they name something else.
bool Choisir(const LigneDeCommande& ligne, const Listes& listes, Categorie& doc, ChoixExport& choix)
{
    choix.colonnes.assign(static_cast<size_t>(doc.ColCount()), true);
    if (listes.colonnes) {
        std::optional<std::vector<bool>> colonnes = listes.colonnes->Parmi(doc.ColCount());
        if (!colonnes) {
            RefuserUsage(u"il n'y a pas de telle colonne : "_s + ligne.Valeur(u"columns"_s), u"export"_s);
            return false;
        }
        choix.colonnes = *std::move(colonnes);
    }
    choix.numeroter = ligne.A(u"number"_s);
    choix.selectionUniquement = listes.entrees.has_value();
    return !listes.entrees || SelectionnerEntrees(ligne, *listes.entrees, u"export"_s, doc);
}

Statut DireIssue(const IssueExport& issue, const QString& chemin)
{
    if (!issue.texteEntier)
        DireErreur(u"Le fichier n'a pas pu être écrit en entier : "_s + chemin);
    if (issue.imagesPerdues > 0)
        DireErreur(u"Images qui n'ont pas pu être copiées : %1"_s.arg(issue.imagesPerdues));
    return issue.EstEntiere() ? Fait : Echec;
}

} // namespace

QStringList GenresExport()
{
    QStringList noms;
    for (const auto& [nom, genre] : Genres())
        noms.append(nom);
    return noms;
}

Statut ExecuterExport(const LigneDeCommande& ligne)
{
    const std::optional<GenreExport> genre = GenreDe(ligne.Valeur(u"as"_s));
    if (!genre)
        return RefuserUsage(u"il manque --as"_s, u"export"_s);
    Listes listes;
    if (!LireListe(ligne, u"columns"_s, u"export"_s, listes.colonnes) ||
        !LireListe(ligne, u"select"_s, u"export"_s, listes.entrees))
        return MauvaisUsage;
    const auto catalogue = CatalogueOuvert::Ouvrir(ligne.arguments[0]);
    if (!catalogue)
        return Echec;
    ChoixExport choix;
    if (!Choisir(ligne, listes, catalogue->doc, choix))
        return MauvaisUsage;

    const QString& chemin = ligne.arguments[1];
    QFile fichier;
    if (!CreerExport(fichier, chemin)) {
        DireErreur(u"Le fichier n'a pas pu être écrit : "_s + chemin);
        return Echec;
    }
    SansAvancement avancement;
    IssueExport issue = EcrireExport(catalogue->doc, *genre, choix, fichier, chemin, avancement);
    fichier.close(); // some disks refuse only now
    issue.texteEntier = issue.texteEntier && fichier.error() == QFileDevice::NoError;
    return DireIssue(issue, chemin);
}
