// The catalogue reader: any bytes give a table that holds together, or a refusal and an empty one; and what is written
// from that table reads back to the same bytes.
//
// An input is the text, and behind the byte 0x1E, where there is one, the exact text beside it ("Zelvane.utf8").
#include "Commun.h"

#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/TexteExact.h"
#include "platform/Plateforme.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>

namespace {

struct Atelier
{
    Atelier()
    {
        static int argc = 1;
        static char nom[] = "fuzz_reader";
        static char* argv[] = {nom, nullptr};
        static QCoreApplication application(argc, argv);
        static PlateformeReelle plateformeReelle;
        plateforme().dossierProgramme = dossier.path() + u'/';
        Ecrire(QStringLiteral("present.jpg"), "x");
    }

    void Ecrire(const QString& nom, const QByteArray& octets) const { EcrireOctets(dossier.filePath(nom), octets); }

    QTemporaryDir dossier;
};

void VerifierTable(const Categorie& doc)
{
    const MyLV& table = *doc.MyLV;
    Verifier(table.ColumnHeaders.Existe(doc.IndexColPrete), "no loan column");
    Verifier(table.ColumnHeaders(doc.IndexColPrete).Text() == u"Prêté", "the loan column is another one");
    Verifier(table.View() == 3, "not in details");
    const int colonnes = std::min(table.ColumnHeaders.Count(), 40);
    for (int i = 1; i <= std::min(table.ListItems.Count(), 200); ++i) {
        const ListItemLu entree = table.ListItems(i);
        Verifier(entree.Index() == i, "a position is wrong");
        Verifier(table.ListItems(entree.Key()) == entree, "a key leads elsewhere");
        for (int c = 1; c <= colonnes; ++c) {
            const QString valeur = entree.Valeur(c);
            Verifier(!valeur.contains(u'|') && !valeur.contains(u'\n'), "a value holds a separator");
        }
        const QString icone = entree.SmallIcon();
        Verifier(entree.Tag().isEmpty() == (icone == u"noico"), "a marker does not go with the image");
        Verifier((icone == u"ico") == (entree.Tag() == u"present.jpg" || entree.Tag() == u"Zelvane.qrt" ||
                                       entree.Tag() == u"Zelvane.utf8"),
                 "a marker does not go with the files");
    }
}

void Recharger(const Atelier& atelier, Categorie& doc)
{
    // A written file always says that it is sorted, so only the entries of a sorted table keep their order.
    if (!doc.MyLV->Sorted() || qint64(doc.ColCount()) * doc.ItemsCount() > 200000)
        return;
    const QByteArray huitBits = TexteDe(doc, stockage::Codage::Cp1252);
    const QByteArray exact = TexteDe(doc, stockage::Codage::Utf8);
    Verifier(TexteExact::FinDuTexteReduit(exact, huitBits) == exact.size(), "the exact text does not reduce");
    atelier.Ecrire(QStringLiteral("Zelvane.qrt"), huitBits);
    atelier.Ecrire(QStringLiteral("Zelvane.utf8"), exact);
    ChargerFichier(doc);
    Verifier(TexteDe(doc, stockage::Codage::Cp1252) == huitBits, "what was written reads back as something else");
    Verifier(TexteDe(doc, stockage::Codage::Utf8) == exact, "the exact text reads back as something else");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    static const Atelier atelier;
    const QByteArray entree(reinterpret_cast<const char*>(octets), static_cast<qsizetype>(taille));
    if (AnnonceBeaucoup(entree))
        return 0;
    const qsizetype coupe = entree.indexOf('\x1E');
    atelier.Ecrire(QStringLiteral("Zelvane.qrt"), coupe < 0 ? entree : entree.left(coupe));
    atelier.Ecrire(QStringLiteral("Zelvane.utf8"), coupe < 0 ? QByteArray() : entree.mid(coupe + 1));

    const CompteurDeMessages compteur;
    Categorie doc;
    doc.TmpFolder = atelier.dossier.path() + u'/';
    ChargerFichier(doc);
    if (compteur.messages > 0) {
        Verifier(doc.ColCount() == 0 && doc.ItemsCount() == 0, "a refused file left something in the table");
    } else {
        VerifierTable(doc);
        Recharger(atelier, doc);
    }
    return 0;
}
