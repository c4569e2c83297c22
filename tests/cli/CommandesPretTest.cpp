// zelvane-cli lend and return.
#include "CommandeDeTest.h"

#include <QFile>
#include <QRegularExpression>

#include <sys/file.h>

namespace {

class CommandesPret : public CommandeDeTest
{
protected:
    CommandesPret()
    {
        texte.cleDeTri = "9"; // no column: the entries keep their order
        texte.entrees = {"Aja|A||", "Blue|A|Ida - 1/1/2001|", "Dummy|B||dummy.png", "Takk|A||"};
    }

    Resultat Preter(const QStringList& suite) const { return Agir("lend", suite); }
    Resultat Rendre(const QStringList& suite) const { return Agir("return", suite); }
    /// The titles and loans of the output.
    QByteArray Prets() const
    {
        QByteArrayList prets;
        const QByteArrayList lignes = Lancer({"list", Sortie()}).sortie.split('\n');
        for (const QByteArray& ligne : lignes.mid(1, texte.entrees.size()))
            prets.append(ligne.split('\t').value(0) + ':' + ligne.split('\t').value(2));
        return prets.join('/');
    }
    QString Sortie() const { return dossier.Fichier("sortie.qrt"); }
    QByteArray Ini() const { return dossier.Lire("programme/Zelvane.ini"); }

    TexteDeCatalogue texte = Catalogue();

private:
    Resultat Agir(const QString& commande, const QStringList& suite) const
    {
        return Lancer(QStringList{commande, dossier.Ecrire("entree.qrt", texte.Texte()), Sortie()} + suite);
    }
};

void AttendreLeSilence(const Resultat& resultat)
{
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_EQ(resultat.sortie, "");
    EXPECT_EQ(resultat.erreurs, "");
}

} // namespace

TEST_F(CommandesPret, LendMarksTheEntriesAndWritesTheContact)
{
    AttendreLeSilence(Preter({"--select", "3,1", "--to", "Élodie", "--email", "e@x.fr", "--date", "13/09/2005"}));
    EXPECT_EQ(Prets(), "Aja:Élodie - 13/09/2005/Blue:Ida - 1/1/2001/Dummy:Élodie - 13/09/2005/Takk:");
    EXPECT_EQ(Ini(),
              "[FileInfo]\r\nType=QRT INI FILE\r\nVersion=2\r\n\r\n[Preter]\r\ncount=1\r\nNom1=\xC9lodie|e@x.fr\r\n");
    EXPECT_TRUE(dossier.Lire("sortie.qrt").contains("dummy.png"));
}

TEST_F(CommandesPret, TheDateIsTodaysUnlessGiven)
{
    environnement.insert("LC_ALL", "fr_FR.UTF-8");
    AttendreLeSilence(Preter({"--select", "1", "--to", "Jo"}));
    EXPECT_TRUE(QRegularExpression("Aja:Jo - \\d\\d/\\d\\d/\\d{4}/Blue").match(Prets()).hasMatch())
        << Prets().toStdString();
}

TEST_F(CommandesPret, WhatIsLentStaysUnlessReplaced)
{
    AttendreLeSilence(Preter({"--select", "1-2", "--to", "Jo", "--date", "D"}));
    EXPECT_EQ(Prets(), "Aja:Jo - D/Blue:Ida - 1/1/2001/Dummy:/Takk:");
    AttendreLeSilence(Preter({"--select", "1-2", "--to", "Jo", "--date", "D", "--replace", "--force"}));
    EXPECT_EQ(Prets(), "Aja:Jo - D/Blue:Jo - D/Dummy:/Takk:");
    EXPECT_TRUE(Ini().endsWith("count=1\r\nNom1=Jo|\r\n")) << "the same contact once";
}

TEST_F(CommandesPret, DependantsGoAlongWhereThereIsADependantColumn)
{
    AttendreLeSilence(Preter({"--select", "4", "--to", "Jo", "--date", "D", "--dependants"}));
    EXPECT_EQ(Prets(), "Aja:/Blue:Ida - 1/1/2001/Dummy:/Takk:Jo - D") << "there is none";
    texte.dependante = "2";
    AttendreLeSilence(Preter({"--select", "4", "--to", "Jo", "--date", "D", "--dependants", "--force"}));
    EXPECT_EQ(Prets(), "Aja:Jo - D/Blue:Ida - 1/1/2001/Dummy:/Takk:Jo - D");
    AttendreLeSilence(Preter({"--select", "4", "--to", "Jo", "--date", "D", "--force"}));
    EXPECT_EQ(Prets(), "Aja:/Blue:Ida - 1/1/2001/Dummy:/Takk:Jo - D");
}

TEST_F(CommandesPret, AnEmptyNameIsRefusedAndNothingIsWritten)
{
    const Resultat resultat = Preter({"--select", "1", "--to", ""});
    EXPECT_EQ(resultat.statut, 1);
    EXPECT_TRUE(resultat.erreurs.startsWith("msg30: Veuillez entrer le nom de la personne à"))
        << resultat.erreurs.toStdString();
    EXPECT_FALSE(dossier.Existe("sortie.qrt"));
    EXPECT_TRUE(Ini().endsWith("count=0\r\n"));
}

TEST_F(CommandesPret, ALoanIsWrittenThoughTheContactListIsHeld)
{
    QFile ini(dossier.Ecrire("programme/Zelvane.ini", "[Preter]\r\ncount=0\r\n"));
    ASSERT_TRUE(ini.open(QIODevice::ReadOnly));
    ASSERT_EQ(flock(ini.handle(), LOCK_EX), 0);
    const Resultat resultat = Preter({"--select", "1", "--to", "Jo", "--date", "D"});
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_TRUE(resultat.erreurs.startsWith("msgContactNonInscrit: « Jo »")) << resultat.erreurs.toStdString();
    EXPECT_TRUE(Prets().startsWith("Aja:Jo - D/"));
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=0\r\n");
}

TEST_F(CommandesPret, ARecordThatADamagedCountHidesIsNotOverwritten)
{
    dossier.Ecrire("programme/Zelvane.ini", "[Preter]\r\ncount=?\r\nNom1=Ida|\r\n");
    const Resultat resultat = Preter({"--select", "1", "--to", "Jo", "--date", "D"});
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_TRUE(resultat.erreurs.contains("msgContactNonInscrit: "));
    EXPECT_EQ(Ini(), "[Preter]\r\ncount=?\r\nNom1=Ida|\r\n");
}

TEST_F(CommandesPret, ReturnEmptiesTheLoans)
{
    texte.entrees[0] = "Aja|A|Ida - 1/1/2001|";
    AttendreLeSilence(Rendre({"--select", "2"}));
    EXPECT_EQ(Prets(), "Aja:Ida - 1/1/2001/Blue:/Dummy:/Takk:");
    texte.dependante = "2";
    AttendreLeSilence(Rendre({"--select", "2", "--force"}));
    EXPECT_EQ(Prets(), "Aja:/Blue:/Dummy:/Takk:") << "what was lent together comes back together";
    EXPECT_FALSE(dossier.Existe("programme/Zelvane.ini"));
}

TEST_F(CommandesPret, ReturnWithTheDependants)
{
    texte.entrees = {"Aja|A|Ida|", "Blue|A|Jo|", "Dummy|B|Lou|"};
    texte.dependante = "2";
    AttendreLeSilence(Rendre({"--select", "1", "--dependants"}));
    EXPECT_EQ(Prets(), "Aja:/Blue:/Dummy:Lou");
}

TEST_F(CommandesPret, AMissingLoanColumnIsThereOnceTheCatalogueIsLoaded)
{
    texte.colonnes = {"Titre|1000|", "Artiste|600|"};
    texte.entrees = {"Aja|A|"};
    AttendreLeSilence(Preter({"--select", "1", "--to", "Jo", "--date", "D"}));
    EXPECT_EQ(Prets(), "Aja:Jo - D");
}

TEST_F(CommandesPret, RefusesOtherUsageAndTouchesNothing)
{
    for (const QStringList& suite : {QStringList{"--to", "Jo"},
                                     {"--select", "1"},
                                     {"--select", "", "--to", "Jo"},
                                     {"--select", "5", "--to", "Jo"},
                                     {"--select", "a", "--to", "Jo"},
                                     {"--select", "1", "--to", "a\nb"},
                                     {"--select", "1", "--to", "a", "--date", "a\rb"}})
        AttendreUneErreurDUsage(Preter(suite));
    AttendreUneErreurDUsage(Rendre({}));
    AttendreUneErreurDUsage(Rendre({"--select", "9"}));
    AttendreUneErreurDUsage(Rendre({"--select", "1", "--replace"}));
    EXPECT_FALSE(dossier.Existe("sortie.qrt"));
    EXPECT_FALSE(dossier.Existe("programme/Zelvane.ini"));
}
