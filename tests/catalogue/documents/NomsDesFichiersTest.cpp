// Catalogue files whose names are no UTF-8, as disks of older systems hold them.
#include "base/Const_Vrac.h"
#include "base/DossiersTemp.h"
#include "base/Options.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/DossiersLaisses.h"
#include "catalogue/documents/OuvrirFichiersQrt.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/TypeFichier.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"
#include "support/ArchiveDeTest.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class NomsDesFichiers : public testing::Test
{
protected:
    NomsDesFichiers() { texte.entrees = {"Abbey Road|"}; }
    ~NomsDesFichiers() override { EnCoursDeSauvegarde = false; }

    Categorie& Ouvrir(const QString& chemin)
    {
        EXPECT_TRUE(OuvrirFichier(cadre, chemin, TypeQrt2, true));
        return cadre.fenetres.back()->myqrt;
    }
    /// A catalogue of the form, 1 or 2, under the name.
    QString Fichier(int forme)
    {
        return dossier.Ecrire(nom, forme == 1 ? texte.Texte() : FaireArchive({{"Zelvane.qrt", texte.Texte()}}));
    }
    static void Changer(Categorie& doc)
    {
        doc.Table.ListItems(1).SetText(u"Aladdin Sane"_s);
        doc.IlFautSauver = true;
    }
    /// The title in the file, as another opening reads it.
    QString TitreDans(const QString& chemin)
    {
        CadreDeTest autre;
        EXPECT_TRUE(OuvrirFichier(autre, chemin, TypeQrt2, true));
        return autre.fenetres.empty() ? QString() : autre.fenetres.back()->table.ListItems(1).Text();
    }

    const QString nom = CheminDesOctets("mes \xE9t\xE9s.qrt");
    DossierDeTest dossier;
    TexteDeCatalogue texte;
    FileDeReponses reponses;
    FileDeFichiers dialogues;
    CadreDeTest cadre;
};

} // namespace

TEST_F(NomsDesFichiers, AreOpenedAndSavedInBothForms)
{
    EcrireOption("SauvegardeLBK", 1);
    for (const int forme : {1, 2}) {
        const QString chemin = Fichier(forme);
        Categorie& doc = Ouvrir(chemin);
        EXPECT_EQ(doc.filename(), nom);
        Changer(doc);
        EXPECT_TRUE(Enregistrer(doc, false, true));
        EXPECT_TRUE(PeutFermer(doc)) << "every byte is on the disk";
        EXPECT_FALSE(doc.GardeDossier());
        EXPECT_EQ(TypeFichier(chemin), forme);
        EXPECT_EQ(TitreDans(chemin), "Aladdin Sane");
        EXPECT_EQ(TypeFichier(chemin + u".bak"_s), forme) << "the copy of the file before";
        cadre.fenetres.back()->Decharger();
    }
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(NomsDesFichiers, AreSavedUnderAnotherSuchName)
{
    Categorie& doc = Ouvrir(Fichier(2));
    Changer(doc);
    const QString autre = CheminDesOctets(dossier.Chemin().toUtf8() + "\xFC.qrt");
    dialogues.Preparer({autre}, 2);
    EXPECT_TRUE(Enregistrer(doc, true, true));
    EXPECT_EQ(TitreDans(autre), "Aladdin Sane");
    EXPECT_EQ(TitreDans(dossier.Fichier(nom)), "Abbey Road");
    dialogues.Preparer({autre}, 2);
    reponses.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(doc, true, true));
    EXPECT_EQ(reponses.Cles(), QStringList("msg59")) << "it is there now";
}

TEST_F(NomsDesFichiers, StayInTheRecentFilesAndOpenFromThere)
{
    const QString chemin = Fichier(2);
    Ouvrir(chemin);
    cadre.fenetres.back()->Decharger();
    const QString recent = LireOption("FRecent1", {}).toString();
    EXPECT_EQ(recent, chemin);
    Ouvrir(recent);
}

TEST_F(NomsDesFichiers, AreWrittenThroughALink)
{
    const QString chemin = Fichier(2);
    const QString lien = dossier.Fichier(u"lien.qrt"_s);
    ASSERT_EQ(symlink(OctetsDuChemin(nom).constData(), OctetsDuChemin(lien).constData()), 0);
    Categorie& doc = Ouvrir(lien);
    Changer(doc);
    EXPECT_TRUE(Enregistrer(doc, false, true));
    EXPECT_TRUE(EstLien(lien));
    EXPECT_EQ(TitreDans(chemin), "Aladdin Sane");
}

TEST_F(NomsDesFichiers, ThatAreReadOnlyAreAskedAbout)
{
    const QString chemin = Fichier(1);
    ASSERT_EQ(chmod(OctetsDuChemin(chemin).constData(), 0444), 0);
    plateforme().attributs = &PlateformeDeTest::Courante().attributs;
    Categorie& doc = Ouvrir(chemin);
    Changer(doc);
    reponses.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer(doc, false, true));
    EXPECT_EQ(reponses.Affiches().first().message.texte,
              "Le fichier est en lecture seule. Continuer l'enregistrement?");
    EXPECT_EQ(EtatDuChemin(chemin)->st_mode & 0777, 0644U);
}

TEST_F(NomsDesFichiers, AreKnownAfterACrash)
{
    const QString chemin = Fichier(2);
    Categorie& doc = Ouvrir(chemin);
    Changer(doc);
    ASSERT_EQ(EcritureDeSecours(doc, nom).Achever(), EcritureDeSecours::Etat::Faite);
    const auto identite = LireIdentite(FichierDeSecours(doc.TmpFolder));
    ASSERT_TRUE(identite);
    EXPECT_EQ(identite->chemin, chemin);
}

TEST_F(NomsDesFichiers, OfAFolderCountToo)
{
    const QString sous = CheminDesOctets(dossier.Chemin().toUtf8() + "mus\xEFque/");
    ASSERT_EQ(mkdir(OctetsDuChemin(sous).constData(), 0777), 0);
    const QString chemin = sous + u"a.qrt"_s;
    ASSERT_TRUE(CopierParChemin(Fichier(1), chemin));
    Categorie& doc = Ouvrir(chemin);
    Changer(doc);
    EXPECT_TRUE(Enregistrer(doc, false, true));
    EXPECT_TRUE(PeutFermer(doc));
    EXPECT_EQ(TitreDans(chemin), "Aladdin Sane");
}
