// The samples stand in the order and form in which the engine writes them: opened and saved, they do not change.
#include "catalogue/texte/TexteQrt.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace {

struct Exemple
{
    const char* nom;
    const char* version;
    int entrees;
    int colonneTriee; // counted from 0
    int colonneDependante;
};

void PrintTo(const Exemple& exemple, std::ostream* sortie)
{
    *sortie << exemple.nom;
}

/// The catalogue's text: all of a bare file, else what Info-ZIP finds in the archive.
QByteArray TexteDe(const Exemple& exemple)
{
    const QString chemin = QStringLiteral(ZELVANE_EXEMPLES "/") + exemple.nom;
    QFile fichier(chemin);
    EXPECT_TRUE(fichier.open(QIODevice::ReadOnly)) << exemple.nom;
    if (!fichier.peek(4).startsWith("PK\3\4"))
        return fichier.readAll();
    QProcess unzip;
    unzip.start("unzip", {"-P", "zelvane", "-p", chemin, "Zelvane.qrt"});
    EXPECT_TRUE(unzip.waitForFinished()) << unzip.errorString().toStdString();
    EXPECT_EQ(unzip.exitCode(), 0) << unzip.readAllStandardError().toStdString();
    return unzip.readAllStandardOutput();
}

std::string NomDuTest(const testing::TestParamInfo<Exemple>& exemple)
{
    std::string nom(exemple.param.nom);
    std::erase_if(nom, [](char signe) { return !std::isalnum(static_cast<unsigned char>(signe)); });
    return nom;
}

class Memoire : public Puits
{
public:
    bool Recevoir(const char* octets, size_t taille) override
    {
        contenu.append(octets, static_cast<qsizetype>(taille));
        return true;
    }
    QByteArray contenu;
};

class Exemples : public testing::TestWithParam<Exemple>
{
protected:
    FileDeReponses messages;
    DocumentDeTest d;
};

} // namespace

TEST_P(Exemples, WrittenAgainAreEqualToTheByte)
{
    const QByteArray texte = TexteDe(GetParam());
    ASSERT_FALSE(texte.isEmpty());
    d.Charger(texte);
    Memoire memoire;
    const auto manques =
        EcrireTexteQrt(d.doc, GetParam().version, EntreesEcrites::Toutes, stockage::Codage::Cp1252, memoire);
    EXPECT_EQ(manques, 0);
    EXPECT_EQ(memoire.contenu, texte);
}

TEST_P(Exemples, OpenWithoutAnythingToRepair)
{
    d.Charger(TexteDe(GetParam()));
    EXPECT_EQ(d.doc.ItemsCount(), GetParam().entrees);
    EXPECT_EQ(d.table.SortKey(), GetParam().colonneTriee);
    EXPECT_EQ(d.doc.dependantcol, GetParam().colonneDependante);
    EXPECT_EQ(d.doc.IndexColPrete, 7);
    EXPECT_FALSE(d.doc.IlFautSauver);
    EXPECT_TRUE(messages.Affiches().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(DuDossier, Exemples,
                         testing::Values(Exemple{"discotheque.qrt", "2", 624, 0, 0},
                                         Exemple{"bibliotheque.qrt", "2", 232, 2, 3},
                                         Exemple{"vinyles-1.4.qrt", "1.4", 135, 0, 0},
                                         Exemple{"protege.qrt", "2", 68, 0, 0}),
                         NomDuTest);
