#include "entries/FichierDEchange.h"

#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const DossierDeTest& Dossier()
{
    return PlateformeDeTest::Courante().dossier;
}

QByteArray SurLeDisque()
{
    return Dossier().Lire(u"~qrtCopier.tmp"_s);
}

/// Everything of this kind that lies in the folder, whatever name it has.
QStringList Restes()
{
    return QDir(Dossier().Chemin()).entryList({u"~qrtCopier*"_s}, QDir::AllEntries | QDir::Hidden | QDir::System);
}

} // namespace

TEST(FichierDEchange, StandsInTheProgramsFolderUntilTheCopyIsDone)
{
    FichierDEchange fichier;
    EXPECT_EQ(FichierDEchange::Chemin(), Dossier().Fichier(u"~qrtCopier.tmp"_s));
    EXPECT_EQ(Restes(), QStringList({u"~qrtCopier.tmp"_s}));
    fichier.Ecrire("[Zelvane]\r\n");
    fichier.Ecrire("a\tb\r\n");
    EXPECT_EQ(fichier.Terminer(), u"[Zelvane]\r\na\tb\r\n"_s);
    EXPECT_EQ(Restes(), QStringList());
    EXPECT_FALSE(fichier.AEchoue());
}

TEST(FichierDEchange, EveryCharacterComesBack)
{
    const QString texte = u"œ€ Жук 漢字 \U0001F600 e\u0301\0z"_s;
    FichierDEchange fichier;
    fichier.Ecrire(texte.toUtf8());
    EXPECT_EQ(fichier.Terminer(), texte);
}

TEST(FichierDEchange, AnOldFileIsReplaced)
{
    Dossier().Ecrire(u"~qrtCopier.tmp"_s, "a text that is much longer than the new one");
    {
        FichierDEchange fichier;
        fichier.Ecrire("neuf");
    }
    EXPECT_EQ(SurLeDisque(), "neuf");
}

TEST(FichierDEchange, ACopyThatIsGivenUpLeavesItsText)
{
    {
        FichierDEchange fichier;
        fichier.Ecrire("[Zelvane-TxtPRE]\r\n");
    }
    EXPECT_EQ(SurLeDisque(), "[Zelvane-TxtPRE]\r\n");
    EXPECT_EQ(Restes(), QStringList({u"~qrtCopier.tmp"_s}));
}

TEST(FichierDEchange, TwoCopiesAtOnceKeepTheirTextsApart)
{
    FichierDEchange un;
    un.Ecrire("un");
    FichierDEchange deux;
    un.Ecrire(" et un");
    deux.Ecrire("deux");
    EXPECT_EQ(un.Terminer(), u"un et un"_s);
    EXPECT_FALSE(un.AEchoue());
    EXPECT_EQ(Restes(), QStringList({u"~qrtCopier.tmp"_s})) << "it is the other one's";
    EXPECT_EQ(deux.Terminer(), u"deux"_s);
    EXPECT_FALSE(deux.AEchoue());
    EXPECT_EQ(Restes(), QStringList());
}

TEST(FichierDEchange, ALinkIsReplacedAndNotFollowed)
{
    const QString ailleurs = Dossier().Ecrire(u"ailleurs.txt"_s, "vieux");
    QFile::link(ailleurs, FichierDEchange::Chemin());
    FichierDEchange fichier;
    fichier.Ecrire("neuf");
    EXPECT_EQ(fichier.Terminer(), u"neuf"_s);
    EXPECT_FALSE(fichier.AEchoue());
    EXPECT_EQ(Dossier().Lire(u"ailleurs.txt"_s), "vieux");
    EXPECT_EQ(Restes(), QStringList());
}

TEST(FichierDEchange, AFolderThatStandsThereStaysAndTheTextIsKept)
{
    Dossier().Ecrire(u"~qrtCopier.tmp/dedans"_s, "x");
    FichierDEchange fichier;
    EXPECT_TRUE(fichier.AEchoue());
    fichier.Ecrire("texte");
    EXPECT_EQ(fichier.Terminer(), u"texte"_s);
    EXPECT_TRUE(fichier.AEchoue());
    EXPECT_EQ(Dossier().Lire(u"~qrtCopier.tmp/dedans"_s), "x");
    EXPECT_EQ(Restes(), QStringList({u"~qrtCopier.tmp"_s}));
}

TEST(FichierDEchange, WithoutAFolderTheTextIsKeptAndTheFailureTold)
{
    plateforme().dossierProgramme = Dossier().Fichier(u"absent/"_s);
    FichierDEchange fichier;
    fichier.Ecrire("texte");
    EXPECT_EQ(fichier.Terminer(), u"texte"_s);
    EXPECT_TRUE(fichier.AEchoue());
    EXPECT_EQ(FichierDEchange::AvisDEchec().cle, u"msgEchangeSansFichier"_s);
    EXPECT_TRUE(FichierDEchange::AvisDEchec().texte.endsWith(u"absent/~qrtCopier.tmp"_s));
}

TEST(FichierDEchange, AFullDiskCostsNothingOfTheText)
{
    const auto enleve = std::unique_ptr<rlimit, void (*)(rlimit*)>(new rlimit, [](rlimit* avant) {
        setrlimit(RLIMIT_FSIZE, avant);
        delete avant;
    });
    getrlimit(RLIMIT_FSIZE, enleve.get());
    std::signal(SIGXFSZ, SIG_IGN);
    const QByteArray texte(3 << 20, 'x');
    FichierDEchange fichier;
    const rlimit petit{1 << 20, enleve->rlim_max};
    setrlimit(RLIMIT_FSIZE, &petit);
    for (qsizetype i = 0; i < texte.size(); i += 1 << 16)
        fichier.Ecrire(QByteArrayView(texte).sliced(i, 1 << 16));
    EXPECT_EQ(fichier.Terminer(), QString::fromLatin1(texte));
    EXPECT_TRUE(fichier.AEchoue());
    EXPECT_EQ(Restes(), QStringList());
}
