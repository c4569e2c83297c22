// The search: whatever the saved text and the text to find are, the lines found are those that a plain look at one line
// after the other finds, and their fields are those of the line.
//
// An input is one byte, whose low three bits choose the columns (all three are the whole line), the text to find in
// UTF-8, the byte 0x1D, the saved text, and behind the byte 0x1E, where there is one, the exact text beside it.
#include "Commun.h"

#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/TexteExact.h"
#include "platform/PageDeCode.h"
#include "search/ResultatsDeRecherche.h"

#include <QTemporaryDir>

#include <array>
#include <cstdint>

#include <unicode/uchar.h>

namespace {

constexpr int Colonnes = 3;

struct Entree
{
    std::vector<bool> choix;
    QString cherche;
    QByteArray texte;
    QByteArray exact;
};

Entree Decouper(const QByteArray& octets)
{
    Entree entree;
    const int masque = octets.isEmpty() ? 0 : octets[0];
    for (int i = 0; i < Colonnes; ++i)
        entree.choix.push_back(masque >> i & 1);
    const QByteArray reste = octets.mid(1);
    const qsizetype coupe = reste.indexOf('\x1D');
    entree.cherche = QString::fromUtf8(reste.left(coupe));
    entree.texte = coupe < 0 ? QByteArray() : reste.mid(coupe + 1);
    if (const qsizetype exact = entree.texte.indexOf('\x1E'); exact >= 0) {
        entree.exact = entree.texte.mid(exact + 1);
        entree.texte.truncate(exact);
    }
    return entree;
}

/// Each character in its simple folding.
QString Replier(const QString& texte)
{
    QString replie;
    for (const uint code : texte.toUcs4())
        replie += QString::fromUcs4(std::array{char32_t(u_foldCase(UChar32(code), U_FOLD_CASE_DEFAULT))}.data(), 1);
    return replie;
}

struct Attendu
{
    QString cle;
    QStringList champs;
};

QStringList LignesDesEntrees(const QString& texte)
{
    QStringList lignes = texte.split(u'\n');
    for (qsizetype i = 0; i + 1 < lignes.size(); ++i)
        if (lignes[i].endsWith(u'\r'))
            lignes[i].chop(1);
    if (lignes.last().isEmpty())
        lignes.removeLast();
    const qsizetype section = lignes.indexOf(QStringLiteral("[ListItems]"));
    return section < 0 ? QStringList() : lignes.mid(section + 2);
}

QList<Attendu> Chercher(const Entree& entree, const QString& texte)
{
    QList<Attendu> trouves;
    const QString cherche = Replier(entree.cherche);
    const bool ligneEntiere = PorteeDeRecherche::DeChoix(entree.choix).ToutesColonnes;
    int rang = 0;
    for (const QString& ligne : LignesDesEntrees(texte)) {
        ++rang;
        const QString valeur = ValeurLigne(ligne);
        const QStringList champs = valeur.split(u'|');
        bool convient = ligneEntiere && Replier(valeur).contains(cherche);
        for (qsizetype i = 0; !ligneEntiere && i < std::min<qsizetype>(champs.size(), Colonnes); ++i)
            convient = convient || (entree.choix[size_t(i)] && Replier(champs[i]).contains(cherche));
        if (convient)
            trouves.append({QStringLiteral("k%1").arg(rang), champs});
    }
    return trouves;
}

void Comparer(const ResultatsDeRecherche& resultats, const QList<Attendu>& attendus)
{
    Verifier(resultats.Table.ListItems.Count() == attendus.size(), "another number of results");
    for (qsizetype i = 0; i < attendus.size(); ++i) {
        const ListItemLu resultat = resultats.Table.ListItems(static_cast<int>(i) + 1);
        const QStringList& champs = attendus[i].champs;
        Verifier(resultat.Key() == attendus[i].cle, "another line was found");
        Verifier(resultats.Table.ListItems(attendus[i].cle) == resultat, "a key leads elsewhere");
        for (int c = 0; c < Colonnes; ++c)
            Verifier(resultat.Valeur(c + 1) == champs.value(c), "another field");
        Verifier(resultat.Tag() == champs.value(Colonnes), "another image");
        Verifier(resultats.Infobulle(resultat) == champs.value(0) + QStringLiteral(" <> ") + champs.value(1),
                 "another tool tip");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    static const QTemporaryDir dossier(ModeleDeDossier(QStringLiteral("fuzz-recherche")));
    const Entree entree = Decouper(QByteArray(reinterpret_cast<const char*>(octets), static_cast<qsizetype>(taille)));
    EcrireOctets(dossier.filePath(QStringLiteral("Zelvane.qrt")), entree.texte);
    EcrireOctets(dossier.filePath(TexteExact::NomDuFichier()), entree.exact);
    const std::optional<qsizetype> fin = TexteExact::FinDuTexteReduit(entree.exact, entree.texte);
    const QString texte = fin ? PageDeCode::DeUtf8(entree.exact.first(*fin)) : PageDeCode::VersTexte(entree.texte);

    Categorie doc;
    for (int i = 0; i < Colonnes; ++i)
        doc.Table.ColumnHeaders.Add();
    ResultatsDeRecherche resultats(doc);
    for (const qsizetype pas : {qsizetype(1), qsizetype(1) << 20}) {
        Recherche recherche(dossier.path() + u'/', Colonnes, entree.cherche, PorteeDeRecherche::DeChoix(entree.choix));
        while (recherche.Avancer(pas)) {
        }
        Verifier((recherche.Issue() == IssueDeRecherche::SansTexte) == entree.cherche.isEmpty(), "a text, or none");
        resultats.Prendre(recherche);
        if (!entree.cherche.isEmpty())
            Comparer(resultats, Chercher(entree, texte));
    }
    return 0;
}
