// Entries whose names no file can have.
#include "catalogue/texte/NomsDeLArchive.h"

#include "catalogue/archive/NomsTenables.h"
#include "catalogue/archive/ccZip.h"
#include "catalogue/documents/Commentaires.h"
#include "catalogue/texte/EcritureQrt.h"
#include "catalogue/texte/ExtraireArchive.h"
#include "catalogue/texte/ImagesDuTexte.h"
#include "catalogue/texte/LectureQrt.h"
#include "catalogue/texte/TypeFichier.h"
#include "support/ArchiveDeTest.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/TableDeTest.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class NomsImpossibles : public testing::Test
{
protected:
    /// Opens an archive of a text whose entries have these images, and of the files.
    void Ouvrir(const QList<QByteArray>& images, QList<EntreeZip> fichiers)
    {
        TexteDeCatalogue texte;
        for (const QByteArray& image : images)
            texte.entrees.append("titre||" + image);
        fichiers.prepend({"Zelvane.qrt", texte.Texte()});
        OuvrirArchive(fichiers);
    }
    void OuvrirArchive(const QList<EntreeZip>& fichiers)
    {
        d.doc.SetCheminReel(ailleurs.Ecrire("mes.qrt", FaireArchive(fichiers)));
        d.doc.FileType = "2";
        ASSERT_EQ(TypeFichier(d.doc.CheminReel()), 2);
        ASSERT_TRUE(ExtraireArchive(d.doc));
        ChargerFichier(d.doc);
    }
    QString Image(int entree) const { return d.table.ListItems(entree).Tag(); }
    QString Icone(int entree) const { return d.table.ListItems(entree).SmallIcon(); }
    QByteArray Contenu(int entree) const { return d.dossier.Lire(Image(entree)); }
    QStringList Fichiers() const { return QDir(d.dossier.Chemin()).entryList(QDir::Files, QDir::Name); }
    QString Dit() const { return messages.Affiches().isEmpty() ? QString() : messages.Affiches()[0].message.texte; }

    FileDeReponses messages;
    DocumentDeTest d;
    DossierDeTest ailleurs;
};

const QByteArray Long = QByteArray(300, 'L') + ".jpg";
constexpr qsizetype OctetsAuPlus = 240;

} // namespace

TEST_F(NomsImpossibles, AnOverlongNameCostsNothingButItsEntry)
{
    Ouvrir({"bon.jpg"}, {{"bon.jpg", "image"}, {Long, "autre"}});
    EXPECT_EQ(Fichiers(), QStringList({"Zelvane.qrt", "bon.jpg"}));
    EXPECT_EQ(Icone(1), "ico");
    ASSERT_EQ(messages.Cles(), QStringList("msgNoms")) << "once";
    EXPECT_EQ(messages.Affiches()[0].genre, MsgOk);
    EXPECT_TRUE(Dit().contains("\n" + QString(60, 'L') + u'…'));
    EXPECT_FALSE(Dit().contains(u'→'));
    EXPECT_EQ(d.doc.Archive->fichiers.size(), 2);
}

TEST_F(NomsImpossibles, ThePictureOfAnEntryIsShownUnderAShorterName)
{
    Ouvrir({"bon.jpg", Long, Long}, {{"bon.jpg", "image"}, {Long, "longue"}});
    for (const int entree : {2, 3}) {
        EXPECT_EQ(Image(entree), QString(OctetsAuPlus - 4, 'L') + ".jpg");
        EXPECT_EQ(Icone(entree), "ico");
        EXPECT_EQ(Contenu(entree), "longue");
    }
    EXPECT_EQ(messages.Cles(), QStringList("msgNoms"));
    EXPECT_TRUE(Dit().contains(u'→'));
}

TEST_F(NomsImpossibles, ANameOfTheGreatestLengthStays)
{
    const QByteArray plein = QByteArray(251, 'p') + ".jpg";
    Ouvrir({plein}, {{plein, "pleine"}});
    EXPECT_EQ(Image(1), QString::fromUtf8(plein));
    EXPECT_EQ(Icone(1), "ico");
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(NomsImpossibles, NoCharacterIsCutInTwo)
{
    for (const int decalage : {0, 1}) {
        QByteArray nom(decalage, 'x');
        for (int i = 0; i < 200; ++i)
            nom += "é";
        Ouvrir({nom + ".gif"}, {{nom + ".gif", "image", false, DrapeauUtf8}});
        EXPECT_EQ(Icone(1), "ico");
        EXPECT_TRUE(Image(1).endsWith(u"éé.gif"_s));
        EXPECT_LE(Image(1).toUtf8().size(), OctetsAuPlus);
        EXPECT_GT(Image(1).toUtf8().size(), OctetsAuPlus - 2);
    }
}

TEST_F(NomsImpossibles, ControlCharactersAreReplaced)
{
    // With and without the mark of UTF-8: with it the library refuses all of the archive.
    for (const uint16_t marque : {DrapeauUtf8, uint16_t(0)}) {
        Ouvrir({"a\x01z.jpg", "bon.jpg"},
               {{"a\x01z.jpg", "image", false, marque}, {"bon.jpg", "bonne"}, {"x\x1Fy", "rien", false, marque}});
        EXPECT_EQ(Image(1), "a_z.jpg") << marque;
        EXPECT_EQ(Contenu(1), "image");
        EXPECT_EQ(Icone(1), "ico");
        EXPECT_EQ(Icone(2), "ico");
        EXPECT_EQ(Fichiers(), QStringList({"Zelvane.qrt", "a_z.jpg", "bon.jpg"}));
    }
    EXPECT_EQ(messages.Cles(), QStringList({"msgNoms", "msgNoms"}));
    EXPECT_TRUE(Dit().contains(u"\na_z.jpg → a_z.jpg"_s)) << Dit().toStdString();
    EXPECT_TRUE(Dit().contains(u"\nx_y"_s));
}

TEST_F(NomsImpossibles, ANameInTheCodePageUnderTheMarkOfUtf8IsReadSo)
{
    Ouvrir({"été.jpg"}, {{"\xE9t\xE9.jpg", "image", false, DrapeauUtf8}});
    EXPECT_EQ(Image(1), u"été.jpg"_s);
    EXPECT_EQ(Icone(1), "ico");
    EXPECT_EQ(Contenu(1), "image");
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(NomsImpossibles, NamesThatBecomeOneAreToldApart)
{
    const QList<QByteArray> noms{"a\x01"
                                 "b.jpg",
                                 "a\x02"
                                 "b.jpg",
                                 "A_b.jpg", Long, "dossier/" + Long.chopped(4) + ".JPG"};
    QList<EntreeZip> fichiers;
    QList<QByteArray> images;
    for (const QByteArray& nom : noms) {
        fichiers.append({nom, nom});
        images.append(nom.sliced(nom.lastIndexOf('/') + 1));
    }
    Ouvrir(images, fichiers);
    QSet<QString> distincts;
    for (int i = 1; i <= noms.size(); ++i) {
        EXPECT_EQ(Icone(i), "ico") << i;
        EXPECT_EQ(Contenu(i), noms[i - 1]) << i;
        EXPECT_LE(Image(i).size(), OctetsAuPlus);
        distincts.insert(Image(i).toLower());
    }
    EXPECT_EQ(distincts.size(), noms.size()) << "also where case does not count";
    EXPECT_EQ(Image(3), "A_b.jpg") << "the good name stays";
}

TEST_F(NomsImpossibles, OfTwoEntriesOfOneNameTheLaterWins)
{
    Ouvrir({Long}, {{Long, "un"}, {Long, "deux"}});
    EXPECT_EQ(Contenu(1), "deux");
    EXPECT_EQ(Fichiers().size(), 2);
}

TEST_F(NomsImpossibles, AnEntryWithoutAPictureGetsNone)
{
    Ouvrir({"a\x01z.jpg", "a_z.jpg"}, {{"a\x01z.jpg", "image"}});
    EXPECT_EQ(Contenu(1), "image");
    EXPECT_EQ(Icone(2), "icoerror") << "its file has never been there";
    EXPECT_EQ(Image(2), "a_z.jpg");
}

TEST_F(NomsImpossibles, NamesOfTheProgramAreNotTaken)
{
    Ouvrir({"Zelvane.\x01~", "Zelvane\x01qrt"}, {{"Zelvane.\x01~", "un"}, {"Zelvane\x01qrt", "deux"}});
    EXPECT_EQ(Image(1), "_Zelvane._~") << "a file that ends so counts as half written";
    EXPECT_EQ(Image(2), "Zelvane_qrt");
    EXPECT_EQ(Contenu(2), "deux");
}

TEST_F(NomsImpossibles, ANameWithABarTravelsAsItIs)
{
    Ouvrir({"bon.jpg"}, {{"a|b.jpg", "image"}, {"bon.jpg", "bonne"}});
    EXPECT_EQ(Fichiers(), QStringList({"Zelvane.qrt", "a|b.jpg", "bon.jpg"}));
    EXPECT_EQ(messages.Cles(), QStringList());
}

TEST_F(NomsImpossibles, TheExactTextAndTheCommentsStayExact)
{
    QByteArray nom;
    constexpr int lettres = 90;
    for (int i = 0; i < lettres; ++i)
        nom += "日";
    TexteDeCatalogue texte;
    texte.entrees = {u"本||"_s.toUtf8() + nom + ".jpg"};
    // The members are UTF-8 and Texte() reduces them: the exact text is put together here.
    QByteArray exact = texte.Texte();
    exact.replace("Pr\xEAt\xE9", "Prêté").replace("?||", "本||").replace(QByteArray(lettres, '?'), nom);
    OuvrirArchive({{"Zelvane.qrt", texte.Texte()},
                   {"Zelvane.utf8", exact + "[Zelvane.txt]\r\n" + u"読む"_s.toUtf8()},
                   {"Zelvane.txt", "??"},
                   {nom + ".jpg", "image", false, DrapeauUtf8}});
    EXPECT_EQ(d.table.ListItems(1).Text(), u"本"_s);
    EXPECT_EQ(Icone(1), "ico");
    EXPECT_EQ(Contenu(1), "image");
    EXPECT_TRUE(Image(1).startsWith(u"日日"_s) && Image(1).endsWith(u"日.jpg"_s));
    EXPECT_EQ(Commentaires::Lire(d.dossier.Chemin()), u"読む"_s);
}

TEST_F(NomsImpossibles, TheFolderCanBeReadAgainAsItIs)
{
    Ouvrir({Long, "a\x01z.jpg", "x|y"}, {{Long, "longue"}, {"a\x01z.jpg", "image"}});
    DocumentDeTest encore;
    encore.doc.TmpFolder = d.doc.TmpFolder;
    ASSERT_TRUE(ChargerDossier(encore.doc));
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(encore.table.ListItems(i).Tag(), Image(i));
        EXPECT_EQ(encore.table.ListItems(i).SmallIcon(), Icone(i));
    }
}

TEST_F(NomsImpossibles, WhatIsSavedIsReadBackEqualAndWithoutAWord)
{
    EntreeZip longue{Long, QByteArray(5000, 'l')};
    longue.methode = 8;
    longue.donnees = Deflate(longue.contenu);
    Ouvrir({Long, "a\x01z.jpg", "bon.jpg"},
           {longue, {"a\x01z.jpg", "image", false, DrapeauUtf8}, {"bon.jpg", "bonne"}, {"\x02", "rien"}});
    ASSERT_EQ(messages.Cles(), QStringList("msgNoms"));
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    EXPECT_FALSE(d.doc.GardeDossier());
    Lancer("unzip", {"-t", d.doc.CheminReel()});

    DocumentDeTest lu;
    lu.doc.SetCheminReel(d.doc.CheminReel());
    ASSERT_TRUE(ExtraireArchive(lu.doc));
    ChargerFichier(lu.doc);
    EXPECT_EQ(messages.Cles().size(), 1) << "nothing more to tell";
    ASSERT_EQ(lu.doc.ItemsCount(), 3);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(lu.table.ListItems(i).Tag(), Image(i));
        EXPECT_EQ(lu.table.ListItems(i).SmallIcon(), "ico");
        EXPECT_EQ(lu.dossier.Lire(Image(i)), Contenu(i));
    }
    EXPECT_EQ(QDir(lu.dossier.Chemin()).entryList(QDir::Files).size(), 4);
}

TEST_F(NomsImpossibles, CompressedBytesAreTakenOverUnderTheNewName)
{
    // A stream that nobody else would write, in an archive that the library reads only with its marks taken away.
    EntreeZip naive{"a\x01z.jpg", QByteArray(1000, 'n'), false, DrapeauUtf8};
    naive.methode = 8;
    naive.donnees = "\x01\xE8\x03\x17\xFC" + naive.contenu;
    Ouvrir({"a\x01z.jpg", "a_z.jpg"}, {naive});
    ASSERT_TRUE(EcrireFichier(d.doc, false));
    const QByteArray taille =
        Lancer("/usr/bin/python3", {"-c",
                                    "import sys, zipfile\n"
                                    "print(zipfile.ZipFile(sys.argv[1]).getinfo(sys.argv[2]).compress_size)",
                                    d.doc.CheminReel(), Image(1)});
    EXPECT_EQ(taille.toInt(), naive.donnees->size());
    EXPECT_EQ(Lancer("unzip", {"-p", d.doc.CheminReel(), Image(1)}), naive.contenu);
}

TEST_F(NomsImpossibles, OfManyNamesTheFirstTenAreListed)
{
    QList<EntreeZip> fichiers;
    for (int i = 0; i < 30; ++i)
        fichiers.append({"n\x01" + QByteArray::number(i), "x"});
    Ouvrir({}, fichiers);
    EXPECT_EQ(Dit().count(u'\n'), 11);
    EXPECT_TRUE(Dit().endsWith(u"\n…"_s));
    EXPECT_EQ(Fichiers(), QStringList("Zelvane.qrt"));
}

TEST_F(NomsImpossibles, ATextThatIsNoneIsNoMatter)
{
    d.doc.SetCheminReel(
        ailleurs.Ecrire("mes.qrt", FaireArchive({{"Zelvane.qrt", "[FileInfo]\r\nCount=9"}, {Long, "x"}})));
    EXPECT_TRUE(ExtraireArchive(d.doc));
    EXPECT_EQ(Fichiers(), QStringList("Zelvane.qrt"));
}

// ---- The names, and the text

TEST(NomsDistincts, ThousandsThatAreCutToTheSameGetNamesAtOnce)
{
    constexpr int combien = 50000; // each trying all before would be a matter of hours
    NomsDistincts noms(240);
    QSet<QString> donnes;
    for (int i = 0; i < combien; ++i)
        donnes.insert(noms.Donner(QString(300, u'x') + QString::number(i) + ".jpg"));
    EXPECT_EQ(donnes.size(), combien);
}

TEST(NomsDistincts, AnExtensionThatIsTooLongIsCutWithTheRest)
{
    NomsDistincts noms(20);
    EXPECT_EQ(noms.Donner("abc." + QString(40, 'x')), "abc." + QString(16, 'x'));
    EXPECT_EQ(noms.Donner("abc." + QString(40, 'x')), "abc." + QString(14, 'x') + "-2");
    EXPECT_EQ(noms.Donner(u"\u0001\u0085\u007F|.jpg"_s), "____.jpg");
    EXPECT_EQ(noms.Donner(QString::fromUcs4(U"\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600.png")).toUtf8().size(),
              20);
    EXPECT_EQ(noms.Donner(QString(30, u'.')), QString(20, u'.'));
}

TEST(ImagesDuTexte, OnlyTheImageFieldOfEntriesIsReplaced)
{
    TexteDeCatalogue texte;
    texte.colonnes = {"a.jpg|1000|", "Prêté|600|a.jpg"};
    texte.entrees = {"a.jpg|a.jpg|a.jpg", "x||b.jpg|a.jpg", "court", "y||a.jpg|suite"};
    const QByteArray avant = texte.Texte();
    const TexteRenomme renomme = RenommerImages(avant + "It5=z||a.jpg\r\n", {{"a.jpg", "neuf.jpg"}, {"c", "d"}});
    texte.entrees = {"a.jpg|a.jpg|neuf.jpg", "x||b.jpg|a.jpg", "court", "y||neuf.jpg|suite"};
    EXPECT_EQ(renomme.texte, texte.Texte() + "It5=z||a.jpg\r\n") << "behind the entries announced";
    EXPECT_EQ(renomme.vus, QSet<QByteArray>{"a.jpg"});
    EXPECT_EQ(ImagesNommees(avant), (QSet<QByteArray>{"a.jpg", "b.jpg"}));
}

TEST(ImagesDuTexte, ATextThatEndsAnywhereIsKept)
{
    TexteDeCatalogue texte;
    texte.entrees = {"un||a.jpg", "deux||a.jpg"};
    const QByteArray entier = texte.Texte();
    for (qsizetype i = 0; i < entier.size(); ++i) {
        const TexteRenomme renomme = RenommerImages(entier.first(i), {{"a.jpg", "a.jpg"}});
        ASSERT_EQ(renomme.texte, entier.first(i));
    }
}
