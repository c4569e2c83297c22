// zelvane-cli paste.
#include "CommandeDeTest.h"

namespace {

class CommandePaste : public CommandeDeTest
{
protected:
    CommandePaste()
    {
        texte.cleDeTri = "9"; // no column: the entries keep their order
        texte.entrees = {"Aja|Dan||"};
    }

    Resultat Coller(const QByteArray& echange, const QStringList& suite = {}) const
    {
        return Lancer(QStringList{"paste", dossier.Ecrire("entree.qrt", texte.Texte()), Sortie(),
                                  dossier.Ecrire("echange.txt", echange)} +
                      suite);
    }
    QByteArray Echange(const QByteArray& titres = "Un\tDeux",
                       const QByteArray& lignes = "a\t1\t\r\né\t2\timage.jpg\r\n") const
    {
        return "[Zelvane]\r\n" + titres + '\t' + dossier.Fichier("images").toUtf8() + "\r\n" + lignes;
    }
    /// The entries of the output, without the loan column.
    QByteArray Entrees() const
    {
        QByteArrayList entrees;
        const QByteArrayList lignes = Lancer({"list", Sortie()}).sortie.split('\n');
        for (const QByteArray& ligne : lignes.mid(1, lignes.size() - 2)) {
            const QByteArrayList champs = ligne.split('\t');
            entrees.append(champs.value(0) + ':' + champs.value(1) + ':' + champs.value(3));
        }
        return entrees.join('/');
    }
    QString Sortie() const { return dossier.Fichier("sortie.qrt"); }

    TexteDeCatalogue texte = Catalogue();
};

void AttendreLeSilence(const Resultat& resultat)
{
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_EQ(resultat.sortie, "");
    EXPECT_EQ(resultat.erreurs, "");
}

} // namespace

TEST_F(CommandePaste, AddsTheEntriesOfTheText)
{
    dossier.Ecrire("images/image.jpg", "image");
    AttendreLeSilence(Coller(Echange()));
    EXPECT_EQ(Entrees(), "Aja:Dan:/a:1:/é:2:image.jpg");
}

TEST_F(CommandePaste, AnArchiveTakesCharactersAndPicturesAlong)
{
    dossier.Ecrire("images/image.jpg", "image");
    AttendreLeSilence(Coller(Echange("Un\tDeux", "б\t2\timage.jpg\r\n"), {"--format", "2"}));
    EXPECT_EQ(Entrees(), "Aja:Dan:/б:2:image.jpg");
    const Resultat vue = Lancer({"list", "--json", Sortie()});
    EXPECT_TRUE(vue.sortie.contains(R"("key":"k2","values":["б","2",""],"image":"image.jpg","icon":"ico")"))
        << vue.sortie.toStdString();
}

TEST_F(CommandePaste, MapLeadsSourcesIntoRows)
{
    dossier.Ecrire("images/image.jpg", "image");
    AttendreLeSilence(Coller(Echange(), {"--map", "2,1"}));
    EXPECT_EQ(Entrees(), "Aja:Dan:/1:a:/2:é:image.jpg");
    AttendreLeSilence(Coller(Echange(), {"--map", "0,0", "--force"}));
    EXPECT_EQ(Entrees(), "Aja:Dan:/::/::image.jpg");
    AttendreLeSilence(Coller(Echange(), {"--map", "2,2", "--force"}));
    EXPECT_EQ(Entrees(), "Aja:Dan:/1:1:/2:2:image.jpg");
    AttendreLeSilence(Coller(Echange(), {"--map", "2", "--force"}));
    EXPECT_EQ(Entrees(), "Aja:Dan:/1:1:/2:2:image.jpg") << "the second row stays as the dialog shows it";
}

TEST_F(CommandePaste, RowsMayNameWhatIsLost)
{
    AttendreLeSilence(Coller(Echange("A\tB\tC\tD", "a\tb\tc\td\t\r\n"), {"--map", "4,3,0,1"}));
    EXPECT_EQ(Entrees(), "Aja:Dan:/d:c:");
}

TEST_F(CommandePaste, EachEntryIsAddedAsOftenAsAsked)
{
    AttendreLeSilence(Coller(Echange("A", "a\t\r\nb\t\r\n"), {"--copies", "3"}));
    EXPECT_EQ(Entrees(), "Aja:Dan:/a::/a::/a::/b::/b::/b::");
}

TEST_F(CommandePaste, PicturesThatCannotBeCopiedAreCounted)
{
    const Resultat resultat = Coller(Echange());
    EXPECT_EQ(resultat.statut, 0);
    EXPECT_EQ(resultat.erreurs, "msgImagesNonCopiees: Images qui n'ont pas pu être copiées : 1. Les entrées ont été "
                                "ajoutées.\n");
    EXPECT_EQ(Entrees(), "Aja:Dan:/a:1:/é:2:image.jpg");
}

TEST_F(CommandePaste, APictureThatIsThereStays)
{
    dossier.Ecrire("images/image.jpg", "premiere");
    AttendreLeSilence(Coller(Echange(), {"--format", "2"}));
    dossier.Ecrire("images/image.jpg", "seconde");
    const QString encore = dossier.Fichier("encore.qrt");
    AttendreLeSilence(Lancer({"paste", Sortie(), encore, dossier.Fichier("echange.txt")}));
    QProcess unzip;
    unzip.start("unzip", {"-p", encore, "*image.jpg"});
    unzip.waitForFinished();
    EXPECT_EQ(unzip.readAllStandardOutput(), "premiere") << "neither replaced nor kept under another name";
}

TEST_F(CommandePaste, ATextOfAnotherKindIsRefusedInSilence)
{
    for (const char* autre : {"", "bonjour", "[Zelvane]", "[Zelvane-TxtPRE]\r\nA\tx\r\n"}) {
        const Resultat resultat = Coller(autre);
        EXPECT_EQ(resultat.statut, 1);
        EXPECT_EQ(resultat.erreurs, "");
        EXPECT_FALSE(dossier.Existe("sortie.qrt"));
    }
}

TEST_F(CommandePaste, ATextThatIsNotThereIsTold)
{
    const Resultat resultat =
        Lancer({"paste", dossier.Ecrire("entree.qrt", texte.Texte()), Sortie(), dossier.Fichier("absent.txt")});
    EXPECT_EQ(resultat.statut, 1);
    EXPECT_EQ(resultat.erreurs, "Le fichier ne peut pas être lu : " + dossier.Fichier("absent.txt").toUtf8() + '\n');
    EXPECT_FALSE(dossier.Existe("sortie.qrt"));
}

TEST_F(CommandePaste, WrongOptionsAreRefused)
{
    for (const char* liste : {"", "a", "1,,2", "1-2", "-1", "3", "1,3", "0,0,0,0"})
        AttendreUneErreurDUsage(Coller(Echange(), {"--map", QString::fromLatin1(liste)}));
    for (const char* copies : {"0", "-1", "32768", "deux", ""})
        AttendreUneErreurDUsage(Coller(Echange(), {"--copies", QString::fromLatin1(copies)}));
    EXPECT_FALSE(dossier.Existe("sortie.qrt"));
}
