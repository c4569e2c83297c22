#include "catalogue/OuvrirFichiersQrt.h"

#include "base/Const_Vrac.h"
#include "catalogue/Cadre.h"
#include "support/ArchiveDeTest.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct PanneauDeTest : PanneauAttente
{
    bool visible = false;
    void Montrer(bool oui) override { visible = oui; }
};

class CadreDeTest;

class FenetreDeTest : public FenetreDocument
{
public:
    explicit FenetreDeTest(CadreDeTest& cadre) : m_cadre(cadre)
    {
        myqrt.MyLV = &table;
        myqrt.wait = &wait;
        myqrt.Ouvrir = &fOuvrir;
    }

    QString Caption() const override { return m_titre; }
    void SetCaption(const QString& titre) override { m_titre = titre; }
    void Decharger() override;

    MyLV table;
    PanneauDeTest wait;
    PanneauDeTest fOuvrir;

private:
    CadreDeTest& m_cadre;
    QString m_titre;
};

class CadreDeTest : public Cadre
{
public:
    std::vector<FenetreDocument*> Documents() const override
    {
        std::vector<FenetreDocument*> liste;
        for (const auto& fenetre : fenetres)
            liste.push_back(fenetre.get());
        return liste;
    }
    FenetreDocument* FenetreActive() const override { return active; }
    FenetreDocument& NouvelleFenetre() override
    {
        fenetres.push_back(std::make_unique<FenetreDeTest>(*this));
        fenetres.back()->fOuvrir.visible = true;
        ++creees;
        active = fenetres.back().get();
        return *active;
    }
    void AmenerDevant(FenetreDocument& fenetre) override { active = &fenetre; }

    std::vector<std::unique_ptr<FenetreDeTest>> fenetres;
    FenetreDocument* active = nullptr;
    int creees = 0;
};

void FenetreDeTest::Decharger()
{
    SupprimerDossier(myqrt.TmpFolder, true);
    std::erase_if(m_cadre.fenetres, [this](const auto& fenetre) { return fenetre.get() == this; });
}

class OuvrirFichierTest : public testing::Test
{
protected:
    OuvrirFichierTest() { texte.entrees = {"Abbey Road|", "Dummy|"}; }

    bool Ouvrir(const QString& chemin, int type = TypeQrt2, bool messages = true)
    {
        return OuvrirFichier(cadre, chemin, type, messages);
    }
    QString FichierTexte(const QString& nom) { return dossier.Ecrire(nom, texte.Texte()); }
    /// An archive of the text and of one image, "abbey.jpg".
    QString FichierArchive(const QString& nom)
    {
        return dossier.Ecrire(nom, FaireArchive({{"Zelvane.qrt", texte.Texte()}, {"abbey.jpg", "JFIF"}}));
    }
    FenetreDeTest& Derniere() { return *cadre.fenetres.back(); }

    DossierDeTest dossier;
    TexteDeCatalogue texte;
    FileDeReponses reponses;
    CadreDeTest cadre;
};

} // namespace

TEST_F(OuvrirFichierTest, ABareTextOpensInAWindowOfItsOwn)
{
    const QString chemin = FichierTexte(u"disques.qrt"_s);
    ASSERT_TRUE(Ouvrir(chemin));
    ASSERT_EQ(cadre.fenetres.size(), 1);
    const QrtClass& doc = Derniere().myqrt;
    EXPECT_EQ(Derniere().Caption(), "disques.qrt");
    EXPECT_EQ(doc.CheminReel(), chemin);
    EXPECT_EQ(doc.filename(), "disques.qrt");
    EXPECT_EQ(doc.FileType, "1");
    EXPECT_EQ(ColonneDe(Derniere().table, 1), QStringList({"Abbey Road", "Dummy"}));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(OuvrirFichierTest, TheTextLiesInTheDocumentsFolder)
{
    ASSERT_TRUE(Ouvrir(FichierTexte(u"disques.qrt"_s)));
    QFile copie(Derniere().myqrt.TmpFolder + u"Zelvane.qrt"_s);
    ASSERT_TRUE(copie.open(QIODevice::ReadOnly));
    EXPECT_EQ(copie.readAll(), texte.Texte());
}

TEST_F(OuvrirFichierTest, TheLoadingPanelIsHiddenAtTheEnd)
{
    ASSERT_TRUE(Ouvrir(FichierTexte(u"disques.qrt"_s)));
    EXPECT_FALSE(Derniere().fOuvrir.visible);
}

TEST_F(OuvrirFichierTest, ALoanColumnThatTheReaderAddsIsNoUnsavedChange)
{
    texte.colonnes = {"Titre|1000|"};
    ASSERT_TRUE(Ouvrir(FichierTexte(u"disques.qrt"_s)));
    EXPECT_EQ(Derniere().myqrt.ColCount(), 2);
    EXPECT_FALSE(Derniere().myqrt.IlFautSauver);
}

TEST_F(OuvrirFichierTest, TheCopyOfAProtectedFileCanBeWritten)
{
    const QString chemin = FichierTexte(u"disques.qrt"_s);
    QFile::setPermissions(chemin, QFile::ReadOwner);
    ASSERT_TRUE(Ouvrir(chemin));
    EXPECT_TRUE(QFile::permissions(Derniere().myqrt.TmpFolder + u"Zelvane.qrt"_s) & QFile::WriteOwner);
    EXPECT_FALSE(QFile::permissions(chemin) & QFile::WriteOwner);
}

TEST_F(OuvrirFichierTest, AnOpenFileIsToldAndComesToTheFront)
{
    const QString chemin = FichierTexte(u"a.qrt"_s);
    ASSERT_TRUE(Ouvrir(chemin));
    ASSERT_TRUE(Ouvrir(FichierTexte(u"b.qrt"_s)));
    EXPECT_FALSE(Ouvrir(chemin));
    ASSERT_EQ(reponses.Cles(), QStringList({"msg48"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, u"Le fichier est deja ouvert :\n"_s + chemin);
    EXPECT_EQ(reponses.Affiches()[0].genre, MsgOk);
    EXPECT_EQ(cadre.fenetres.size(), 2);
    EXPECT_EQ(cadre.active, cadre.fenetres[0].get());
}

TEST_F(OuvrirFichierTest, AnOpenFileComesToTheFrontAlsoWithoutMessages)
{
    const QString chemin = FichierTexte(u"a.qrt"_s);
    ASSERT_TRUE(Ouvrir(chemin));
    ASSERT_TRUE(Ouvrir(FichierTexte(u"b.qrt"_s)));
    EXPECT_FALSE(Ouvrir(chemin, TypeQrt2, false));
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_EQ(cadre.active, cadre.fenetres[0].get());
}

TEST_F(OuvrirFichierTest, AnotherSpellingOfThePathOpensASecondWindow)
{
    FichierTexte(u"a.qrt"_s);
    ASSERT_TRUE(Ouvrir(dossier.Chemin() + u"a.qrt"_s));
    EXPECT_TRUE(Ouvrir(dossier.Chemin() + u"./a.qrt"_s));
    EXPECT_EQ(cadre.fenetres.size(), 2);
    EXPECT_NE(cadre.fenetres[0]->myqrt.TmpFolder, cadre.fenetres[1]->myqrt.TmpFolder);
}

TEST_F(OuvrirFichierTest, AFileThatIsNotThereIsTold)
{
    EXPECT_FALSE(Ouvrir(dossier.Fichier(u"nulle-part.qrt"_s)));
    EXPECT_FALSE(Ouvrir(QString(), TypeQrt2, false));
    EXPECT_FALSE(Ouvrir(dossier.Chemin()));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg49", "msg49", "msg49"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte, "Erreur lors de l'ouverture : le fichier n'existe pas");
    EXPECT_EQ(cadre.creees, 0);
}

TEST_F(OuvrirFichierTest, AnOpenedFileIsTheMostRecentOne)
{
    const QString a = FichierTexte(u"a.qrt"_s);
    const QString b = FichierTexte(u"b.qrt"_s);
    ASSERT_TRUE(Ouvrir(a));
    ASSERT_TRUE(Ouvrir(b));
    EXPECT_EQ(LireOption(u"FRecent1"_s, QString()).toString(), b);
    EXPECT_EQ(LireOption(u"FRecent2"_s, QString()).toString(), a);
}

TEST_F(OuvrirFichierTest, AFileThatIsGoneLeavesTheRecentOnes)
{
    const QString chemin = dossier.Fichier(u"partie.qrt"_s);
    EcrireOption(u"FRecent1"_s, chemin);
    EXPECT_FALSE(Ouvrir(chemin));
    EXPECT_EQ(LireOption(u"FRecent1"_s, QString()).toString(), QString());
}

TEST_F(OuvrirFichierTest, AFileThatDoesNotOpenIsNotRemembered)
{
    EXPECT_FALSE(Ouvrir(dossier.Ecrire(u"photo.qrt"_s, "JFIF....")));
    EXPECT_FALSE(
        Ouvrir(dossier.Ecrire(u"abime.qrt"_s, FaireArchive({{.nom = "Zelvane.qrt", .contenu = "x", .crc = 1}}))));
    EXPECT_EQ(LireOption(u"FRecent1"_s, QString()).toString(), QString());
}

TEST_F(OuvrirFichierTest, AFileThatIsNoCatalogueMakesNoWindow)
{
    EXPECT_FALSE(Ouvrir(dossier.Ecrire(u"photo.qrt"_s, "JFIF....")));
    EXPECT_FALSE(Ouvrir(dossier.Ecrire(u"vide.qrt"_s, ""), TypeQrt14, false));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg50", "msg50"}));
    EXPECT_EQ(reponses.Affiches()[0].message.texte,
              "Erreur lors de l'ouverture : le fichier n'est pas un fichier qrt correcte");
    EXPECT_EQ(cadre.creees, 0);
}

TEST_F(OuvrirFichierTest, AWrongTypeLineLeavesAnEmptyDocumentOpen)
{
    const QString chemin = dossier.Ecrire(u"faux.qrt"_s, "[FileInfo]\r\nType=AUTRE FILE\r\n");
    EXPECT_TRUE(Ouvrir(chemin));
    ASSERT_EQ(reponses.Cles(), QStringList({"msg50"}));
    EXPECT_TRUE(reponses.Affiches()[0].message.texte.endsWith("valide"_L1));
    ASSERT_EQ(cadre.fenetres.size(), 1);
    EXPECT_EQ(Derniere().myqrt.CheminReel(), chemin);
    EXPECT_EQ(Derniere().myqrt.ItemsCount(), 0);
    EXPECT_EQ(Derniere().myqrt.ColCount(), 0);
    EXPECT_FALSE(Derniere().fOuvrir.visible);
}

TEST_F(OuvrirFichierTest, ATextThatCannotBeCopiedClosesItsWindow)
{
    const QString chemin = FichierTexte(u"a.qrt"_s);
    TempFolder = dossier.Ecrire(u"pas-un-dossier"_s, "x");
    EXPECT_FALSE(Ouvrir(chemin));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg51"}));
    EXPECT_EQ(cadre.creees, 1);
    EXPECT_TRUE(cadre.fenetres.empty());
}

TEST_F(OuvrirFichierTest, ATypeThatNoPluginOffersOpensNothing)
{
    EXPECT_FALSE(Ouvrir(FichierTexte(u"a.qrt"_s), PremierTypePlugIn));
    EXPECT_EQ(cadre.creees, 0);
}

TEST_F(OuvrirFichierTest, AnArchiveOpensWithItsImages)
{
    texte.entrees = {"Abbey Road||abbey.jpg", "Dummy||perdue.jpg"};
    ASSERT_TRUE(Ouvrir(FichierArchive(u"disques.qrt"_s)));
    EXPECT_EQ(Derniere().myqrt.FileType, "2");
    EXPECT_TRUE(QFileInfo::exists(Derniere().myqrt.TmpFolder + u"abbey.jpg"_s));
    EXPECT_EQ(Derniere().table.ListItems(1).SmallIcon(), "ico");
    EXPECT_EQ(Derniere().table.ListItems(2).SmallIcon(), "icoerror");
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

TEST_F(OuvrirFichierTest, TheChosenTypeDoesNotDecideTheForm)
{
    ASSERT_TRUE(Ouvrir(FichierTexte(u"a.qrt"_s), TypeQrt2));
    ASSERT_TRUE(Ouvrir(FichierArchive(u"b.qrt"_s), TypeQrt14));
    EXPECT_EQ(cadre.fenetres[0]->myqrt.FileType, "1");
    EXPECT_EQ(cadre.fenetres[1]->myqrt.FileType, "2");
}

TEST_F(OuvrirFichierTest, AnArchiveThatCannotBeExtractedTakesWindowAndFolderAway)
{
    const QByteArray archive = FaireArchive({{.nom = "Zelvane.qrt", .contenu = texte.Texte(), .crc = 1}});
    EXPECT_FALSE(Ouvrir(dossier.Ecrire(u"abime.qrt"_s, archive)));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg52"}));
    EXPECT_EQ(cadre.creees, 1);
    EXPECT_TRUE(cadre.fenetres.empty());
    EXPECT_TRUE(QDir(TempFolder).isEmpty());
}

TEST_F(OuvrirFichierTest, ALockedArchiveOpensWithItsPassword)
{
    reponses.PreparerMotDePasse(u"zelvane"_s);
    ASSERT_TRUE(Ouvrir(QStringLiteral(ZELVANE_EXEMPLES "/protege.qrt")));
    EXPECT_GT(Derniere().myqrt.ItemsCount(), 0);
    EXPECT_EQ(reponses.QuestionsDeMotDePasse(), 1);
}

TEST_F(OuvrirFichierTest, ALockedArchiveWithoutAPasswordDoesNotOpen)
{
    reponses.PreparerMotDePasse(QString());
    EXPECT_FALSE(Ouvrir(QStringLiteral(ZELVANE_EXEMPLES "/protege.qrt")));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg52"}));
    EXPECT_TRUE(cadre.fenetres.empty());
}
