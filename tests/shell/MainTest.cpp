#include "shell/Main.h"

#include "base/Const_Vrac.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

/// Notes each step, and whether the settings file existed then.
class EtapesNotees : public EtapesDemarrage
{
public:
    void ChargerCadre() override { Noter("charger"); }
    void MontrerCadre() override { Noter("montrer"); }
    void DechargerCadre() override { Noter("decharger"); }
    bool PrevInstace() override
    {
        Noter("autre ?");
        return autreInstance;
    }
    void SendTexte(const QString& texte) override { Noter("envoyer <" + texte + ">"); }
    void SowPrev() override { Noter("avancer l'autre"); }
    void Class_Terminate98() override { Noter("liberer"); }
    void MontrerPresentation() override { Noter("presentation"); }
    void OuvrirFichier(const QString& chemin) override { Noter("ouvrir <" + chemin + ">"); }
    void MajMenuRecents() override { Noter("recents"); }
    void ProposerSecours() override { Noter("secours"); }
    void MontrerAstuces() override { Noter("astuces"); }

    bool autreInstance = false;
    bool iniTropTot = false;
    QStringList journal;

private:
    void Noter(const QString& etape)
    {
        journal += etape;
        iniTropTot = iniTropTot || QFile::exists(FichierZelvaneIni());
    }
};

class MainTest : public testing::Test
{
protected:
    const DossierDeTest& m_dossier = PlateformeDeTest::Courante().dossier;
    AssociationComptee& m_association = PlateformeDeTest::Courante().association;
    EtapesNotees m_etapes;
};

TEST_F(MainTest, ShowsTheFrameTheStartUpWindowAndTheTipsAtAFirstStart)
{
    m_dossier.Ecrire("astuces.txt", "x");

    EXPECT_EQ(Main("", m_etapes), SuiteDemarrage::Vivre);

    EXPECT_EQ(m_etapes.journal, (QStringList{"charger", "autre ?", "montrer", "presentation", "secours", "astuces"}));
    EXPECT_FALSE(m_etapes.iniTropTot) << "the settings file is created last";
    EXPECT_TRUE(m_dossier.Existe("Zelvane.ini"));
}

TEST_F(MainTest, OpensTheFileOfTheCommandLineInstead)
{
    m_dossier.Ecrire("astuces.txt", "x");
    EcrireOption("OpenLastFile", 1);

    EXPECT_EQ(Main("/home/é/my cds.qrt", m_etapes), SuiteDemarrage::Vivre);

    EXPECT_EQ(m_etapes.journal,
              (QStringList{"charger", "autre ?", "montrer", "ouvrir </home/é/my cds.qrt>", "recents", "secours"}));
    EXPECT_TRUE(m_dossier.Existe("Zelvane.ini"));
}

TEST_F(MainTest, NeitherSplitsNorUnquotesTheCommandLine)
{
    Main(" \"/a b\" c ", m_etapes);

    EXPECT_TRUE(m_etapes.journal.contains("ouvrir < \"/a b\" c >"));
}

TEST_F(MainTest, HandsOverToARunningInstance)
{
    m_dossier.Ecrire("astuces.txt", "x");
    m_etapes.autreInstance = true;

    EXPECT_EQ(Main("/a b.qrt", m_etapes), SuiteDemarrage::Finir);

    EXPECT_EQ(m_etapes.journal,
              (QStringList{"charger", "autre ?", "envoyer </a b.qrt>", "avancer l'autre", "liberer", "decharger"}));
    EXPECT_FALSE(m_etapes.iniTropTot);
    EXPECT_TRUE(m_dossier.Existe("Zelvane.ini")) << "created on every path";
}

TEST_F(MainTest, BringsARunningInstanceToTheFrontWithoutAFile)
{
    m_etapes.autreInstance = true;

    EXPECT_EQ(Main("", m_etapes), SuiteDemarrage::Finir);

    EXPECT_EQ(m_etapes.journal,
              (QStringList{"charger", "autre ?", "envoyer <>", "avancer l'autre", "liberer", "decharger"}));
}

TEST_F(MainTest, OpensTheLastFileBetweenTheStartUpWindowAndTheTips)
{
    m_dossier.Ecrire("astuces.txt", "x");
    EcrireOption("OpenlastFile", 1);
    EcrireOption("FRecent1", "/home/cds.qrt");

    Main("", m_etapes);

    EXPECT_EQ(m_etapes.journal, (QStringList{"charger", "autre ?", "montrer", "presentation", "ouvrir </home/cds.qrt>",
                                             "recents", "secours", "astuces"}));
}

TEST_F(MainTest, OpensTheEmptyPathWhenThereIsNoLastFile)
{
    EcrireOption("OpenLastFile", 1);

    Main("", m_etapes);

    EXPECT_TRUE(m_etapes.journal.contains("ouvrir <>"));
}

TEST_F(MainTest, OpensTheLastFileForAnyNumberButZero)
{
    for (const auto& [valeur, ouvre] :
         {std::pair("0", false), {"0,0", false}, {"1", true}, {"-1", true}, {"2", true}}) {
        EtapesNotees etapes;
        EcrireOption("OpenLastFile", valeur);

        Main("", etapes);

        EXPECT_EQ(etapes.journal.contains("ouvrir <>"), ouvre) << valeur;
    }
}

TEST_F(MainTest, KeepsTheTipsAwayForTheValueOneAlone)
{
    m_dossier.Ecrire("astuces.txt", "x");
    for (const auto& [valeur, montre] : {std::pair("1", false), {"0", true}, {"2", true}, {"oui", true}, {"", true}}) {
        EtapesNotees etapes;
        EcrireOption("ShowTipsAtStartup", valeur);

        Main("", etapes);

        EXPECT_EQ(etapes.journal.contains("astuces"), montre) << valeur;
    }
}

TEST_F(MainTest, ShowsNoTipsWithoutTheirFile)
{
    Main("", m_etapes);

    EXPECT_FALSE(m_etapes.journal.contains("astuces"));
}

TEST_F(MainTest, AssociatesTheFilesFirst)
{
    struct Etapes : EtapesNotees
    {
        void ChargerCadre() override { associees = PlateformeDeTest::Courante().association.fois; }
        int associees = 0;
    } etapes;

    Main("", etapes);

    EXPECT_EQ(etapes.associees, 1);
    EXPECT_EQ(m_association.fois, 1);
}

TEST_F(MainTest, AssociatesTheFilesForTheValueOneAlone)
{
    for (const auto& [valeur, fois] : {std::pair("1", 1), {"0", 0}, {"2", 0}, {"oui", 0}, {"", 0}}) {
        m_association.fois = 0;
        EcrireOption("VerrifAssociation", valeur);

        Main("", m_etapes);

        EXPECT_EQ(m_association.fois, fois) << valeur;
    }
}

TEST_F(MainTest, ReadsTheSettingsWhenTheStartUpWindowIsGone)
{
    // Another instance may have handed a file over while it was shown.
    struct Etapes : EtapesNotees
    {
        void MontrerPresentation() override { EcrireOption("OpenLastFile", 1); }
    } etapes;

    Main("", etapes);

    EXPECT_TRUE(etapes.journal.contains("ouvrir <>"));
}

using CreerZelvaneIniTest = MainTest;

TEST_F(CreerZelvaneIniTest, WritesTwelveLines)
{
    CreerZelvaneIni();

    EXPECT_EQ(m_dossier.Lire("Zelvane.ini"),
              Lignes({"[FileInfo]", "Type=QRT INI FILE", "Version=2.1", "", "[Preter]", "count=0", "", "[Internet]",
                      "  #Parametre du proxy? mettre Use proxy \xE0 0 (pas de proxy) ou 1 (proxy)", "UseProxy=0",
                      "HostProxy=", "PortProxy="}));
}

TEST_F(CreerZelvaneIniTest, LeavesTheFileThatExists)
{
    m_dossier.Ecrire("Zelvane.ini", "mine");

    CreerZelvaneIni();

    EXPECT_EQ(m_dossier.Lire("Zelvane.ini"), "mine");
}

TEST_F(CreerZelvaneIniTest, DoesNotMindAFolderThatCannotBeWritten)
{
    plateforme().dossierProgramme = m_dossier.Fichier("none/");

    CreerZelvaneIni();

    EXPECT_FALSE(m_dossier.Existe("none"));
}

TEST_F(CreerZelvaneIniTest, MakesAFileThatTheRoutinesRead)
{
    CreerZelvaneIni();

    EXPECT_EQ(LireIni(FichierZelvaneIni(), "Preter", "Count", "x"), "0");
    EXPECT_EQ(LireIni(FichierZelvaneIni(), "Internet", "UseProxy", "x"), "0");
    EXPECT_EQ(LireIni(FichierZelvaneIni(), "Internet", "HostProxy", "x"), "");
}

} // namespace
