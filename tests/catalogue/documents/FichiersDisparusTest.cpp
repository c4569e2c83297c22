// Files of the folder that vanish behind the program's back.
#include "catalogue/documents/FichiersDisparus.h"

#include "base/ActesDuDossier.h"
#include "base/DossiersTemp.h"
#include "catalogue/archive/FichierDuDossier.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/archive/ccZipDescripteur.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/documents/CopieDeSecours.h"
#include "catalogue/documents/Sauver.h"
#include "catalogue/texte/Categorie.h"
#include "catalogue/texte/ExtraireArchive.h"
#include "catalogue/texte/LectureQrt.h"
#include "platform/VerrouDossier.h"
#include "support/ArchiveDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Images = 50;

class Disparition : public testing::Test
{
protected:
    Disparition()
    {
        doc.TmpFolder = CreerDossierTemp();
        doc.FileType = "2";
        TexteDeCatalogue texte;
        QList<EntreeZip> fichiers;
        for (int i = 0; i < Images; ++i) {
            texte.entrees.append("titre||" + Nom(i));
            fichiers.append(EntreeZip{Nom(i), Contenu(i), true});
        }
        texte.entrees.append("titre||jamais.jpg");
        fichiers.append(EntreeZip{"libre.jpg", "sans entrée"});
        fichiers.append(EntreeZip{"Zelvane.txt", "bons\r\n"});
        fichiers.prepend(EntreeZip{"Zelvane.qrt", texte.Texte()});
        Ouvrir(FaireArchive(fichiers));
    }
    ~Disparition() override
    {
        EnCoursDeSauvegarde = false;
        SupprimerDossier(doc.TmpFolder, true);
    }

    static QByteArray Nom(int i) { return "image" + QByteArray::number(i) + ".jpg"; }
    static QByteArray Contenu(int i) { return QByteArray(100 + i, static_cast<char>('a' + i % 26)); }

    void Ouvrir(const QByteArray& archive)
    {
        doc.SetCheminReel(ailleurs.Ecrire("mes.qrt", archive));
        ASSERT_TRUE(ExtraireArchive(doc));
        ChargerFichier(doc);
        doc.IlFautSauver = false;
    }
    bool Enregistrer()
    {
        table.ListItems(1).SetText(QString::number(++m_fois));
        doc.IlFautSauver = true;
        return ::Enregistrer(doc, false, true);
    }
    QString Dans(const QString& nom) const { return doc.TmpFolder + nom; }
    void Perdre(const QString& nom) { ASSERT_TRUE(QFile::remove(Dans(nom))); }
    void ToutPerdre()
    {
        for (const QString& nom : QDir(doc.TmpFolder).entryList(QDir::Files))
            Perdre(nom);
    }
    QByteArray Lire(const QString& nom) const { return LireFichier(Dans(nom)).value_or("absent"); }
    QStringList Archives() const
    {
        return QString::fromUtf8(Lancer("zipinfo", {"-1", doc.CheminReel()})).split(u'\n', Qt::SkipEmptyParts);
    }
    QByteArray DansLArchive(const QString& nom) const { return Lancer("unzip", {"-p", doc.CheminReel(), nom}); }
    QString Dit() const { return messages.Affiches().last().message.texte; }

    FileDeReponses messages;
    FileDeFichiers dialogues;
    DossierDeTest ailleurs;
    Categorie doc;
    MyLV& table = doc.Table;

private:
    int m_fois = 0;
};

constexpr int Tout = Images + 3;

} // namespace

TEST_F(Disparition, WhatACleanerTookComesBackFromTheOldArchive)
{
    ToutPerdre();
    EXPECT_TRUE(Enregistrer());
    EXPECT_EQ(Archives().size(), Tout);
    for (int i = 0; i < Images; ++i) {
        EXPECT_EQ(DansLArchive(Nom(i)), Contenu(i));
        EXPECT_EQ(Lire(Nom(i)), Contenu(i)) << "also in the folder";
    }
    EXPECT_EQ(DansLArchive("libre.jpg"), QByteArray("sans entrée"));
    EXPECT_EQ(DansLArchive("Zelvane.txt"), "bons\r\n");
    EXPECT_EQ(messages.Cles(), QStringList());
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(Disparition, AlsoFromAnArchiveThatWasJustWritten)
{
    for (int i = 0; i < 3; ++i) {
        FichierDuDossier neuve(Dans("neuve.jpg"));
        ASSERT_TRUE(neuve.Preparer("neuve" + QByteArray::number(i)) && neuve.Valider());
        table.ListItems(2).SetTag("neuve.jpg");
        ASSERT_TRUE(Enregistrer());
        ToutPerdre();
        ASSERT_TRUE(Enregistrer());
        EXPECT_EQ(Archives().size(), Tout + 1);
        EXPECT_EQ(DansLArchive("neuve.jpg"), "neuve" + QByteArray::number(i));
    }
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(Disparition, TheWholeFolderIsMadeAnewAndHeldAgain)
{
    SupprimerDossier(doc.TmpFolder, false);
    ASSERT_TRUE(QDir(doc.TmpFolder).removeRecursively());
    const QString dossier = doc.TmpFolder;
    EXPECT_TRUE(Enregistrer());
    EXPECT_EQ(doc.TmpFolder, dossier);
    EXPECT_EQ(Archives().size(), Tout);
    EXPECT_EQ(messages.Cles(), QStringList());
    struct stat etat = {};
    ASSERT_EQ(stat(QFile::encodeName(dossier).constData(), &etat), 0);
    EXPECT_EQ(etat.st_mode & 0777, 0700U);
    const auto verrou = VerrouDossier::Prendre(dossier);
    EXPECT_FALSE(verrou.has_value()) << "it is held";
}

TEST_F(Disparition, ADocumentThatWasNeverSavedGetsItsFolderBackToo)
{
    doc.Archive.reset();
    ASSERT_TRUE(QDir(doc.TmpFolder).removeRecursively());
    EXPECT_TRUE(Enregistrer());
    EXPECT_EQ(Archives(), QStringList("Zelvane.qrt"));
    EXPECT_EQ(messages.Cles(), QStringList()) << "nothing is known of its pictures";
}

TEST_F(Disparition, WhatTheUserDeletedStaysDeleted)
{
    ASSERT_TRUE(SupprimerDuDossier(Dans("image3.jpg")));
    Perdre("image4.jpg");
    EXPECT_TRUE(Enregistrer());
    EXPECT_FALSE(Archives().contains("image3.jpg"));
    EXPECT_EQ(DansLArchive("image4.jpg"), Contenu(4));
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(Disparition, AlsoAfterASaveThatDidNotComeAbout)
{
    ASSERT_TRUE(SupprimerDuDossier(Dans("image3.jpg")));
    const QString chemin = doc.CheminReel();
    doc.SetCheminReel(ailleurs.Fichier("pas/ici.qrt"));
    EXPECT_TRUE(Enregistrer()) << "as an archive that could not be written counts";
    doc.SetCheminReel(chemin);
    doc.RegarderFichier();
    EXPECT_TRUE(Enregistrer());
    EXPECT_FALSE(Archives().contains("image3.jpg"));
}

TEST_F(Disparition, AFileThatCameBackAfterItsDeletionIsMissedAgain)
{
    ASSERT_TRUE(SupprimerDuDossier(Dans("image3.jpg")));
    QFile remise(Dans("image3.jpg"));
    ASSERT_TRUE(remise.open(QIODevice::WriteOnly) && remise.write("remise") == 6);
    remise.close();
    ASSERT_TRUE(Enregistrer());
    Perdre("image3.jpg");
    ASSERT_TRUE(Enregistrer());
    EXPECT_EQ(DansLArchive("image3.jpg"), "remise");
}

TEST_F(Disparition, SaveAsTakesThemOverToo)
{
    ToutPerdre();
    const QByteArray avant = ailleurs.Lire("mes.qrt");
    dialogues.Preparer({ailleurs.Fichier("autre.qrt")}, 2);
    EXPECT_TRUE(::Enregistrer(doc, true, true));
    EXPECT_EQ(doc.filename(), "autre.qrt");
    EXPECT_EQ(Archives().size(), Tout);
    EXPECT_EQ(ailleurs.Lire("mes.qrt"), avant);
}

TEST_F(Disparition, CompressedBytesAreStillTakenOver)
{
    Perdre("image3.jpg");
    ASSERT_TRUE(RetablirDisparus(doc));
    EXPECT_EQ(doc.Archive->fichiers.value("image3.jpg").etat, zipinterne::EtatDe(Dans("image3.jpg")));
    EXPECT_TRUE(doc.Archive->fichiers.value("image3.jpg").sur);
}

TEST_F(Disparition, TheTextComesBackAsItWasAndARescueCopyStaysTheLaterOne)
{
    const std::optional<QByteArray> empreinte = EmpreinteDuTexte(doc.TmpFolder);
    ASSERT_FALSE(empreinte.value_or(QByteArray()).isEmpty());
    for (int i = 0; i < 2; ++i) {
        const std::optional<QByteArray> avant = EmpreinteDuTexte(doc.TmpFolder);
        Perdre("Zelvane.qrt");
        ASSERT_TRUE(RetablirDisparus(doc));
        EXPECT_EQ(EmpreinteDuTexte(doc.TmpFolder), avant) << i;
        ASSERT_TRUE(Enregistrer());
    }
}

TEST_F(Disparition, CommentsBeyondTheCodePageComeBackExact)
{
    ASSERT_TRUE(Commentaires::Ecrire(doc.TmpFolder, u"読む"_s));
    ASSERT_TRUE(Enregistrer());
    ToutPerdre();
    ASSERT_TRUE(Enregistrer());
    EXPECT_EQ(Commentaires::Lire(doc.TmpFolder), u"読む"_s);
    EXPECT_EQ(messages.Cles(), QStringList());
}

// ---- What cannot come back

namespace {

/// Why the archive will not do.
struct Empechement
{
    const char* nom;
    void (*faire)(const QString& archive);
};

void PrintTo(const Empechement& cas, std::ostream* flux)
{
    *flux << cas.nom;
}

class SansArchive : public Disparition, public testing::WithParamInterface<Empechement>
{
};

const Empechement LesEmpechements[] = {
    {"Gone", [](const QString& archive) { QFile::remove(archive); }},
    {"Replaced",
     [](const QString& archive) {
         QFile::copy(archive, archive + u'2');
         QFile::remove(archive);
         QFile::rename(archive + u'2', archive);
     }},
    {"Written",
     [](const QString& archive) {
         QFile fichier(archive);
         EXPECT_TRUE(fichier.open(QIODevice::Append) && fichier.write("x") == 1);
     }},
};

} // namespace

TEST_P(SansArchive, TheUserIsAskedBeforeAnythingIsTouched)
{
    Perdre("image3.jpg");
    Perdre("libre.jpg");
    Perdre("Zelvane.txt");
    GetParam().faire(doc.CheminReel());
    const bool etait = QFileInfo::exists(doc.CheminReel());
    const QByteArray avant = etait ? ailleurs.Lire("mes.qrt") : QByteArray();
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer());
    EXPECT_EQ(messages.Cles(), QStringList("msgDisparus")) << "and no other message";
    EXPECT_EQ(messages.Affiches()[0].genre, MsgOuiNon);
    EXPECT_TRUE(Dit().contains("(2)"));
    EXPECT_TRUE(Dit().endsWith("\nZelvane.txt\nimage3.jpg")) << Dit().toStdString();
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(QFileInfo::exists(doc.CheminReel()), etait);
    EXPECT_EQ(etait ? ailleurs.Lire("mes.qrt") : QByteArray(), avant);

    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer());
    EXPECT_EQ(Archives().size(), Tout - 3);
    EXPECT_TRUE(Enregistrer()) << "without another question";
    EXPECT_EQ(messages.Cles().size(), 2);
}

INSTANTIATE_TEST_SUITE_P(, SansArchive, testing::ValuesIn(LesEmpechements),
                         [](const auto& cas) { return std::string(cas.param.nom); });

TEST_F(Disparition, WhatNoEntryNamesIsNotAskedAbout)
{
    Perdre("libre.jpg");
    ASSERT_TRUE(QFile::remove(doc.CheminReel()));
    EXPECT_TRUE(Enregistrer());
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(Disparition, ADamagedEntryIsAskedAboutAndTheOthersComeBack)
{
    QByteArray archive = ailleurs.Lire("mes.qrt");
    // Behind its name, which the text has first. The known archive is made the damaged one.
    const qsizetype octet = archive.indexOf("image7.jpg", archive.indexOf("image7.jpg") + 1) + 12;
    archive[octet] = static_cast<char>(archive[octet] ^ 0x55);
    QFile fichier(doc.CheminReel());
    ASSERT_TRUE(fichier.open(QIODevice::ReadWrite) && fichier.write(archive) == archive.size());
    fichier.close();
    doc.Archive->etat = *zipinterne::EtatDe(doc.CheminReel());
    Perdre("image7.jpg");
    Perdre("image8.jpg");
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer());
    EXPECT_TRUE(Dit().endsWith("(1). Voulez-vous enregistrer sans eux?\nimage7.jpg")) << Dit().toStdString();
    EXPECT_EQ(Lire("image8.jpg"), Contenu(8));
    EXPECT_FALSE(QFile::exists(Dans("image7.jpg"))) << "no half of it";
}

TEST_F(Disparition, AnEncryptedEntryIsAskedAboutWithoutAPassword)
{
    ailleurs.Ecrire("clair/Zelvane.qrt", Lire("Zelvane.qrt"));
    ailleurs.Ecrire("clair/image1.jpg", "un");
    Lancer("zip", {"-q", "-e", "-P", "secret", "../clef.zip", "image1.jpg", "Zelvane.qrt"}, ailleurs.Fichier("clair"));
    messages.PreparerMotDePasse("secret");
    Ouvrir(ailleurs.Lire("clef.zip"));
    Perdre("image1.jpg");
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer());
    EXPECT_EQ(messages.Cles(), QStringList("msgDisparus"));
    EXPECT_EQ(messages.QuestionsDeMotDePasse(), 1) << "at the opening";
}

TEST_F(Disparition, APictureThatWasReplacedDoesNotSilentlyComeBackAsItWas)
{
    FichierDuDossier neuve(Dans("image3.jpg"));
    ASSERT_TRUE(neuve.Preparer("neuve") && neuve.Valider());
    Perdre("image3.jpg");
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer());
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer());
    EXPECT_EQ(DansLArchive("image3.jpg"), Contenu(3)) << "better than none";
    EXPECT_EQ(messages.Cles().size(), 2);
}

TEST_F(Disparition, OnceItIsInTheArchiveAReplacedPictureComesBackEachTime)
{
    FichierDuDossier neuve(Dans("image3.jpg"));
    ASSERT_TRUE(neuve.Preparer("neuve") && neuve.Valider());
    ASSERT_TRUE(Enregistrer());
    for (int i = 0; i < 3; ++i) {
        Perdre("image3.jpg");
        ASSERT_TRUE(RetablirDisparus(doc));
        EXPECT_EQ(Lire("image3.jpg"), "neuve");
    }
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(Disparition, APictureThatWasAddedSinceIsAskedAbout)
{
    FichierDuDossier neuve(Dans("neuve.jpg"));
    ASSERT_TRUE(neuve.Preparer("neuve") && neuve.Valider());
    table.ListItems(2).SetTag("neuve.jpg");
    Perdre("neuve.jpg");
    messages.Preparer(RepOui);
    EXPECT_TRUE(Enregistrer());
    EXPECT_TRUE(Enregistrer());
    EXPECT_EQ(messages.Cles(), QStringList("msgDisparus")) << "once";
    EXPECT_EQ(Archives().size(), Tout);
}

TEST_F(Disparition, OfManyTheFirstTenAreNamed)
{
    ToutPerdre();
    ASSERT_TRUE(QFile::remove(doc.CheminReel()));
    messages.Preparer(RepNon);
    EXPECT_FALSE(Enregistrer());
    EXPECT_TRUE(Dit().contains("(51)")) << "the pictures and the comments";
    EXPECT_EQ(Dit().count(u'\n'), 11);
    EXPECT_TRUE(Dit().endsWith(u"\n…"_s));
}

TEST_F(Disparition, ATableWithoutColumnsIsRefusedAsEver)
{
    ToutPerdre();
    table.ListItems.Clear();
    table.ColumnHeaders.Clear();
    EXPECT_FALSE(::Enregistrer(doc, false, true));
    EXPECT_EQ(messages.Cles(), QStringList("msg62"));
    EXPECT_TRUE(QDir(doc.TmpFolder).isEmpty());
}
