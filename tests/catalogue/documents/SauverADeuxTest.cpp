// Two that save one file in the same moment, and what comes from outside while a save runs.
#include "catalogue/documents/Sauver.h"

#include "catalogue/archive/ccZip.h"
#include "catalogue/documents/SecoursDesDocuments.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/ExtraireArchive.h"
#include "catalogue/texte/LectureQrt.h"
#include "platform/Retenue.h"
#include "platform/SignauxDeFin.h"
#include "support/ArchiveDeTest.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QFileInfo>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int s_images = 20;

/// A document with images, whose entry and images show whose it is.
class Signe : public DocumentDeTest
{
public:
    Signe(char signe, const QString& chemin) : m_signe(signe)
    {
        doc.FileType = "2";
        doc.SetCheminReel(chemin);
        for (int i = 0; i < s_images; ++i)
            dossier.Ecrire(Nom(i), Image());
        MettreColonnes(table, {"Titre", "Prêté"});
        AjouterEntrees(table, {{QString(QLatin1Char(signe)), ""}});
        doc.IlFautSauver = true;
    }
    /// Whether the archive is this document's, and whole.
    static bool EstEntiere(const QString& chemin, char signe)
    {
        DocumentDeTest lu;
        lu.doc.SetCheminReel(chemin);
        if (!ExtraireArchive(lu.doc) || !ChargerDossier(lu.doc))
            return false;
        if (lu.table.ListItems(1).Text() != QLatin1Char(signe))
            return false;
        for (int i = 0; i < s_images; ++i) {
            if (lu.dossier.Lire(Nom(i)) != QByteArray(20000, signe))
                return false;
        }
        return true;
    }

private:
    static QString Nom(int i) { return QStringLiteral("i%1.jpg").arg(i); }
    QByteArray Image() const { return QByteArray(20000, m_signe); }
    char m_signe;
};

class SauverADeux : public testing::Test
{
protected:
    ~SauverADeux() override { EnCoursDeSauvegarde = false; }

    /// In a child, which ends without a clean-up: what it makes goes with the test.
    void TenirLesDossiersIci() const { qputenv("TMPDIR", QFile::encodeName(dossier.Chemin())); }

    FileDeReponses messages;
    FileDeFichiers dialogues;
    DossierDeTest dossier;
    QString chemin = dossier.Fichier("mes.qrt");
};

TEST_F(SauverADeux, WhoComesSecondIsToldAndTheFirstOnesFileStands)
{
    for (const bool dejaLa : {false, true}) {
        Signe premier('a', chemin), second('b', chemin);
        EXPECT_EQ(QFileInfo::exists(chemin), dejaLa);
        bool aussi = true;
        // Another program, in the middle of the first one's save.
        QTimer::singleShot(0, [&] { aussi = EcrireFichier(second.doc, false); });
        EXPECT_TRUE(Enregistrer(premier.doc, false, true));
        EXPECT_FALSE(aussi);
        EXPECT_FALSE(second.doc.GardeDossier());
        EXPECT_TRUE(Signe::EstEntiere(chemin, 'a'));
        EXPECT_TRUE(Enregistrer(second.doc, false, true)) << "later, of course";
        EXPECT_TRUE(Signe::EstEntiere(chemin, 'b'));
    }
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(SauverADeux, ALinkAndItsFileAreOnePlace)
{
    dossier.Ecrire("mes.qrt", "x");
    ASSERT_TRUE(QFile::link(chemin, dossier.Fichier("lien.qrt")));
    Signe premier('a', chemin), second('b', dossier.Fichier("lien.qrt")), texte('c', dossier.Fichier("lien.qrt"));
    bool aussi = true, quatorze = true;
    QTimer::singleShot(0, [&] {
        aussi = EcrireFichier(second.doc, false);
        quatorze = EcrireFichier14(texte.doc, false);
    });
    EXPECT_TRUE(Enregistrer(premier.doc, false, true));
    EXPECT_FALSE(aussi);
    EXPECT_FALSE(quatorze);
    EXPECT_TRUE(Signe::EstEntiere(chemin, 'a'));
}

TEST_F(SauverADeux, AFileThatAProgramWithoutLocksPutThereCountsAndOursIsNotSaved)
{
    dossier.Ecrire("mes.qrt", "x");
    Signe premier('a', chemin);
    QTimer::singleShot(0, [&] {
        QFile::remove(chemin);
        dossier.Ecrire("mes.qrt", "autre");
    });
    EXPECT_FALSE(Enregistrer(premier.doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList("msg62"));
    EXPECT_TRUE(premier.doc.IlFautSauver);
    EXPECT_FALSE(premier.doc.GardeDossier());
    EXPECT_EQ(dossier.Lire("mes.qrt"), "autre");
}

TEST_F(SauverADeux, OfTwoProcessesOneIsToldAndTheFileIsWholeWheneverTheyMeet)
{
    for (int tour = 0; tour < 15; ++tour) {
        pid_t enfants[2];
        for (int i = 0; i < 2; ++i) {
            enfants[i] = fork();
            if (enfants[i] == 0) {
                TenirLesDossiersIci();
                Signe doc(static_cast<char>('a' + i), chemin);
                _exit(Enregistrer(doc.doc, false, true) ? 0 : doc.doc.IlFautSauver && !doc.doc.GardeDossier() ? 1 : 2);
            }
        }
        bool reussis[2];
        for (int i = 0; i < 2; ++i) {
            int etat = 0;
            ASSERT_EQ(waitpid(enfants[i], &etat, 0), enfants[i]);
            ASSERT_TRUE(WIFEXITED(etat));
            ASSERT_LT(WEXITSTATUS(etat), 2);
            reussis[i] = WEXITSTATUS(etat) == 0;
        }
        ASSERT_TRUE(reussis[0] || reussis[1]) << tour;
        ASSERT_TRUE((reussis[0] && Signe::EstEntiere(chemin, 'a')) || (reussis[1] && Signe::EstEntiere(chemin, 'b')))
            << tour;
    }
}

// ---- What comes from outside

TEST_F(SauverADeux, NothingFromOutsideIsHeardWhileTheArchiveIsMade)
{
    Signe signe('a', chemin);
    bool retenu = false, enEcriture = false, fermee = true;
    QTimer::singleShot(0, [&] {
        retenu = Retenue::EnCours();
        enEcriture = signe.doc.EnEcriture;
        EnCoursDeSauvegarde = false; // one flag for all documents, which another flow may put down
        fermee = PeutFermer(signe.doc);
    });
    EXPECT_TRUE(Enregistrer(signe.doc, false, true));
    EXPECT_TRUE(retenu);
    EXPECT_TRUE(enEcriture);
    EXPECT_FALSE(fermee);
    EXPECT_FALSE(Retenue::EnCours());
    EXPECT_FALSE(signe.doc.EnEcriture);
}

TEST_F(SauverADeux, AFolderOfWhichAnArchiveIsBeingMadeOutlivesTheEndOfTheProcess)
{
    CadreDeTest cadre;
    FenetreDocument& fenetre = cadre.NouvelleFenetre();
    Categorie& doc = fenetre.myqrt;
    MettreColonnes(*doc.MyLV, {"Titre"});
    doc.TmpFolder = dossier.Chemin() + "/";
    doc.EnEcriture = true;
    LaisserAuSecours(cadre);
    EXPECT_TRUE(QFileInfo::exists(dossier.Chemin()));
    doc.EnEcriture = false;
}

class SignalPendantUnSave : public SauverADeux, public testing::WithParamInterface<int>
{
};

TEST_P(SignalPendantUnSave, EndsTheProcessOnceTheFileIsWhole)
{
    for (const bool deux : {false, true}) {
        dossier.Ecrire("mes.qrt", "ancien");
        const pid_t enfant = fork();
        if (enfant == 0) {
            TenirLesDossiersIci();
            CadreDeTest cadre;
            Signe signe('a', chemin);
            FenetreDocument& fenetre = cadre.NouvelleFenetre();
            fenetre.myqrt.MyLV = &signe.table;
            fenetre.myqrt.TmpFolder = signe.doc.TmpFolder;
            fenetre.myqrt.FileType = "2";
            fenetre.myqrt.SetCheminReel(chemin);
            fenetre.myqrt.IlFautSauver = true;
            const SignauxDeFin signaux([&] {
                LaisserAuSecours(cadre);
                dossier.Ecrire("fini", fenetre.myqrt.TmpFolder.toUtf8());
            });
            QTimer::singleShot(0, [deux] {
                raise(GetParam());
                if (deux)
                    raise(GetParam());
            });
            if (!Enregistrer(fenetre.myqrt, false, true))
                _exit(1);
            for (int i = 0; i < 100; ++i)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            _exit(2);
        }
        int etat = 0;
        ASSERT_EQ(waitpid(enfant, &etat, 0), enfant);
        ASSERT_TRUE(WIFSIGNALED(etat)) << WEXITSTATUS(etat);
        EXPECT_EQ(WTERMSIG(etat), GetParam());
        EXPECT_TRUE(dossier.Existe("fini"));
        EXPECT_EQ(dossier.Lire("fini"), "") << "the folder goes, as all is in the file";
        EXPECT_TRUE(Signe::EstEntiere(chemin, 'a'));
    }
}

INSTANTIATE_TEST_SUITE_P(Signaux, SignalPendantUnSave, testing::Values(SIGINT, SIGTERM, SIGHUP));

} // namespace
