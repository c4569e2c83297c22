// The document as a plug-in sees it: by names alone.
#include "extensions/plugins/FaceDocument.h"

#include "platform/ZelvanePlugin.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QFile>

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

template<class... Arguments> QObject* Objet(QObject* de, const char* membre, Arguments... arguments)
{
    QObject* rendu = nullptr;
    EXPECT_TRUE(QMetaObject::invokeMethod(de, membre, Q_RETURN_ARG(QObject*, rendu), arguments...)) << membre;
    return rendu;
}

template<class... Arguments> bool Vrai(QObject* de, const char* membre, Arguments... arguments)
{
    bool rendu = false;
    EXPECT_TRUE(QMetaObject::invokeMethod(de, membre, Q_RETURN_ARG(bool, rendu), arguments...)) << membre;
    return rendu;
}

class FacesTest : public testing::Test
{
protected:
    FacesTest()
    {
        MettreColonnes(d->table, {"Titre", "Artiste"});
        AjouterEntrees(d->table, {{"Aja", "Steely Dan"}, {"Blue", "Joni Mitchell"}, {"Chet", "Chet Baker"}});
    }
    QObject* Sous(const char* nom) const { return face->property(nom).value<QObject*>(); }
    QObject* Entrees() const { return Sous("MyLV")->property("ListItems").value<QObject*>(); }
    QObject* Colonnes() const { return Sous("MyLV")->property("ColumnHeaders").value<QObject*>(); }

    std::optional<DocumentDeTest> d{std::in_place};
    std::unique_ptr<FaceDocument> face = std::make_unique<FaceDocument>(d->doc);
};

} // namespace

TEST_F(FacesTest, TheDocumentIsReadAndWritten)
{
    EXPECT_EQ(face->property("ItemsCount").toInt(), 3);
    EXPECT_EQ(face->property("ColCount").toInt(), 2);
    EXPECT_EQ(face->property("TmpFolder").toString(), d->doc.TmpFolder);
    EXPECT_EQ(face->property("ZelvaneIni").toString(), d->doc.ZelvaneIni());
    face->setProperty("ScriptChemin", "un");
    face->setProperty("ScriptEdition", true);
    face->setProperty("IlFautSauver", true);
    face->setProperty("CheminReel", "/disques/a.qrt");
    face->setProperty("FileType", "2");
    face->setProperty("NbSauv", "4");
    face->setProperty("IndexColPrete", 2);
    face->setProperty("dependantcol", 1);
    EXPECT_EQ(d->doc.ScriptChemin, "un");
    EXPECT_TRUE(d->doc.ScriptEdition);
    EXPECT_TRUE(d->doc.IlFautSauver);
    EXPECT_EQ(d->doc.CheminReel(), "/disques/a.qrt");
    EXPECT_EQ(face->property("filename").toString(), "a.qrt");
    EXPECT_EQ(d->doc.FileType, "2");
    EXPECT_EQ(d->doc.NbSauv(), "4");
    EXPECT_EQ(d->doc.IndexColPrete, 2);
    EXPECT_EQ(d->doc.dependantcol, 1);
    face->setProperty("FileType", "9");
    face->setProperty("IndexColPrete", 3);
    face->setProperty("dependantcol", -1);
    EXPECT_EQ(d->doc.FileType, "2");
    EXPECT_EQ(d->doc.IndexColPrete, 2);
    EXPECT_EQ(d->doc.dependantcol, 1);
    EXPECT_TRUE(QMetaObject::invokeMethod(face.get(), "ClearLV"));
    EXPECT_EQ(d->doc.ItemsCount(), 0);
    EXPECT_EQ(d->doc.ColCount(), 0);
}

TEST_F(FacesTest, EntriesAreReachedByIndexAndByKey)
{
    QObject* entree = Objet(Entrees(), "Item", Q_ARG(int, 2));
    ASSERT_TRUE(entree);
    EXPECT_EQ(entree->property("Text").toString(), "Blue");
    EXPECT_EQ(entree->property("Index").toInt(), 2);
    QString artiste;
    QMetaObject::invokeMethod(entree, "SubItems", Q_RETURN_ARG(QString, artiste), Q_ARG(int, 1));
    EXPECT_EQ(artiste, "Joni Mitchell");
    const QString cle = entree->property("Key").toString();
    const QObject* meme = Objet(Entrees(), "Item", Q_ARG(QString, cle));
    ASSERT_TRUE(meme);
    EXPECT_EQ(meme->property("Text").toString(), "Blue");
    entree->setProperty("Selected", true);
    EXPECT_TRUE(d->table.ListItems(2).Selected());
    Sous("MyLV")->setProperty("SelectedItem", QVariant::fromValue(entree));
    EXPECT_EQ(d->table.SelectedItem().Index(), 2);
    EXPECT_FALSE(Objet(Entrees(), "Item", Q_ARG(int, 0)));
    EXPECT_FALSE(Objet(Entrees(), "Item", Q_ARG(int, 4)));
    EXPECT_FALSE(Objet(Entrees(), "Item", Q_ARG(QString, u"kx"_s)));
    EXPECT_FALSE(Vrai(entree, "SetSubItems", Q_ARG(int, 2), Q_ARG(QString, u"x"_s)));
    QMetaObject::invokeMethod(entree, "SubItems", Q_RETURN_ARG(QString, artiste), Q_ARG(int, 0));
    EXPECT_EQ(artiste, "");
}

TEST_F(FacesTest, NoBarAndNoLineBreakGetsIn)
{
    QObject* entree = Objet(Entrees(), "Add", Q_ARG(int, 0), Q_ARG(QString, QString()), Q_ARG(QString, u"a|b\nc"_s));
    ASSERT_TRUE(entree);
    EXPECT_EQ(d->table.ListItems(4).Text(), u"a¦b c"_s);
    EXPECT_EQ(d->table.ListItems(4).Key(), "k4");
    entree->setProperty("Text", "d|\r\n");
    EXPECT_TRUE(Vrai(entree, "SetSubItems", Q_ARG(int, 1), Q_ARG(QString, u"|"_s)));
    QObject* colonne = Objet(Colonnes(), "Add", Q_ARG(int, 0), Q_ARG(QString, u"t|\n"_s));
    ASSERT_TRUE(colonne);
    colonne->setProperty("Tag", "un|deux\n");
    zelvane::Table table(face.get());
    EXPECT_TRUE(table.AjouterLignes({u"|"_s, u"\n"_s, u"z"_s}));
    EXPECT_TRUE(table.EcrireLignes(1, {u"|"_s, u"\n"_s, u"z"_s}));
    for (int ligne : {1, 4, 5}) {
        for (int rang = 1; rang <= 3; ++rang) {
            const QString valeur = d->table.ListItems(ligne).Valeur(rang);
            EXPECT_FALSE(valeur.contains(u'|') || valeur.contains(u'\n') || valeur.contains(u'\r')) << ligne;
        }
    }
    EXPECT_EQ(d->table.ColumnHeaders(3).Text(), u"t¦ "_s);
    EXPECT_EQ(d->table.ColumnHeaders(3).Tag(), "un|deux ") << "a list, whose bars part its texts";
}

TEST_F(FacesTest, AnEntryThatWasRemovedIsForgotten)
{
    QObject* deuxieme = Objet(Entrees(), "Item", Q_ARG(int, 2));
    QObject* troisieme = Objet(Entrees(), "Item", Q_ARG(int, 3));
    EXPECT_TRUE(Vrai(Entrees(), "Remove", Q_ARG(int, 2)));
    EXPECT_FALSE(Vrai(Entrees(), "Remove", Q_ARG(int, 9)));
    ASSERT_TRUE(Objet(Entrees(), "Add", Q_ARG(int, 0), Q_ARG(QString, QString()), Q_ARG(QString, u"Neuf"_s)));
    deuxieme->setProperty("Text", "perdu");
    EXPECT_EQ(deuxieme->property("Index").toInt(), 0);
    EXPECT_EQ(ColonneDe(d->table, 1), QStringList({"Aja", "Chet", "Neuf"}));
    EXPECT_EQ(troisieme->property("Index").toInt(), 2);
    EXPECT_TRUE(QMetaObject::invokeMethod(Entrees(), "Clear"));
    EXPECT_EQ(troisieme->property("Text").toString(), "");
}

TEST_F(FacesTest, ImagesOfManyEntriesGoThroughAtOnce)
{
    zelvane::Table table(face.get());
    d->dossier.Ecrire(u"aja.png"_s, "x");
    EXPECT_TRUE(table.EcrireImages(2, {u"aja.png"_s, u"ab|sente.jpg"_s}));
    EXPECT_EQ(table.LireImages(1, 9), QStringList({u""_s, u"aja.png"_s, u"ab¦sente.jpg"_s}));
    EXPECT_EQ(table.LireImages(0, 1), QStringList());
    EXPECT_EQ(d->table.ListItems(2).SmallIcon(), "ico");
    EXPECT_EQ(d->table.ListItems(3).SmallIcon(), "icoerror");
    EXPECT_FALSE(table.EcrireImages(3, {u"a.png"_s, u"b.png"_s})) << "beyond the end";
    EXPECT_FALSE(table.EcrireImages(0, {u"a.png"_s}));
    EXPECT_EQ(d->table.ListItems(3).Tag(), u"ab¦sente.jpg"_s);
    EXPECT_TRUE(table.EcrireImages(2, {QString()}));
    EXPECT_EQ(d->table.ListItems(2).Tag(), "");
    EXPECT_EQ(d->table.ListItems(2).SmallIcon(), "noico");
}

TEST_F(FacesTest, AnImageComesIntoTheFolderUnderANameOfItsOwn)
{
    const DossierDeTest ailleurs;
    QObject* document = face.get();
    EXPECT_EQ(zelvane::AjouterImage(document, ailleurs.Ecrire(u"un/photo.JPG"_s, "un")), "photo.JPG");
    EXPECT_EQ(zelvane::AjouterImage(document, ailleurs.Ecrire(u"deux/photo.JPG"_s, "deux")), "0photo.JPG");
    d->dossier.Ecrire(u"1photo.JPG"_s, "pris");
    EXPECT_EQ(zelvane::AjouterImage(document, ailleurs.Ecrire(u"trois/photo.JPG"_s, "trois")), "2photo.JPG");
    EXPECT_EQ(zelvane::AjouterImage(document, ailleurs.Ecrire(u"a|b.png"_s, "png")), "a_b.png");
    EXPECT_EQ(d->dossier.Lire(u"photo.JPG"_s), "un");
    EXPECT_EQ(d->dossier.Lire(u"0photo.JPG"_s), "deux");
    EXPECT_EQ(d->dossier.Lire(u"1photo.JPG"_s), "pris");
    EXPECT_EQ(d->dossier.Lire(u"2photo.JPG"_s), "trois");
    EXPECT_EQ(zelvane::AjouterImage(document, ailleurs.Ecrire(u"Zelvane.qrt"_s, "x")), "") << "no image";
    EXPECT_EQ(zelvane::AjouterImage(document, ailleurs.Fichier(u"absent.png"_s)), "");
    EXPECT_EQ(zelvane::AjouterImage(document, QString()), "");
    EXPECT_EQ(zelvane::AjouterImage(nullptr, QString()), "");
}

TEST_F(FacesTest, ManyRowsGoThroughAtOnce)
{
    zelvane::Table table(face.get());
    EXPECT_EQ(table.Colonnes(), 2);
    EXPECT_EQ(table.Lignes(), 3);
    EXPECT_EQ(table.Titres(), QStringList({"Titre", "Artiste"}));
    EXPECT_EQ(table.LireLignes(2, 9), QStringList({"Blue", "Joni Mitchell", "Chet", "Chet Baker"}));
    EXPECT_EQ(table.LireLignes(4, 1), QStringList());
    EXPECT_EQ(table.LireLignes(0, 1), QStringList());
    EXPECT_EQ(table.LireLignes(2, 2147483647).size(), 4) << "more than there are";
    d->table.ListItems(2).SetTag(u"bleu.png"_s);
    EXPECT_EQ(table.LireImages(1, 9), QStringList({"", "bleu.png", ""}));
    EXPECT_EQ(table.LireImages(2, 1), QStringList({"bleu.png"}));
    EXPECT_EQ(table.LireImages(4, 1), QStringList());
    EXPECT_EQ(table.LireImages(0, 1), QStringList());
    EXPECT_TRUE(table.AjouterLignes({"D", "d", "E", "e"}));
    EXPECT_EQ(ClesDe(d->table), QStringList({"k1", "k2", "k3", "k4", "k5"}));
    EXPECT_FALSE(table.AjouterLignes({"F", "f", "G"}));
    EXPECT_TRUE(table.EcrireLignes(4, {"DD", "dd"}));
    EXPECT_FALSE(table.EcrireLignes(5, {"x", "x", "y", "y"}));
    table.RetirerLignes({1, 3, 77});
    EXPECT_EQ(ColonneDe(d->table, 1), QStringList({"Blue", "DD", "E"}));
    EXPECT_TRUE(table.AjouterLignes({"H", "h"}));
    EXPECT_EQ(d->table.ListItems(4).Key(), "k6") << "k4 and k5 are still other entries'";
    EXPECT_TRUE(table.AjouterColonnes({"Trois"}));
    EXPECT_EQ(table.Colonnes(), 3);
}

TEST_F(FacesTest, SomeColumnsOfManyRowsAreReadAtOnce)
{
    const zelvane::Table table(face.get());
    EXPECT_EQ(table.LireColonnes({2}, 2, 9), QStringList({"Joni Mitchell", "Chet Baker"}));
    EXPECT_EQ(table.LireColonnes({2, 1, 2}, 1, 1), QStringList({"Steely Dan", "Aja", "Steely Dan"}));
    EXPECT_EQ(table.LireColonnes({1, 3}, 1, 1), QStringList()) << "there is no third one";
    EXPECT_EQ(table.LireColonnes({1}, 4, 1), QStringList());
    EXPECT_EQ(table.LireColonnes({1}, 0, 1), QStringList());
    EXPECT_EQ(table.LireColonnes({}, 1, 1), QStringList());
    d.reset();
    EXPECT_EQ(table.LireColonnes({1}, 1, 1), QStringList());
}

TEST_F(FacesTest, ADeletionAsksAboutTheImagesThatNoEntryKeeps)
{
    AjouterEntrees(d->table, {{"Dune", ""}, {"Emma", ""}, {"Faust", ""}});
    for (const char* nom : {"un.png", "deux.png", "commune.png", "trois.png"})
        d->dossier.Ecrire(QString::fromLatin1(nom), "x");
    const QStringList images = {"un.png", "deux.png", "commune.png", "commune.png", "deux.png", "trois.png"};
    for (int i = 1; i <= 6; ++i)
        d->table.ListItems(i).SetTag(images[i - 1]);
    QStringList demandees;
    face->DemanderPourImages([&](const QString& chemin) {
        EXPECT_EQ(d->table.ListItems.Count(), 6) << "the entry is still there";
        demandees.append(chemin);
        return demandees.size() == 1 ? SupprImgNon : SupprImgOui;
    });
    d->doc.IlFautSauver = false;
    zelvane::Table table(face.get());
    EXPECT_EQ(table.SupprimerLignes({3, 1, 5, 2, 2, 0, 99}), 4);
    EXPECT_EQ(ColonneDe(d->table, 1), QStringList({"Dune", "Faust"}));
    EXPECT_EQ(demandees, QStringList({d->dossier.Fichier(u"un.png"_s), d->dossier.Fichier(u"deux.png"_s)}))
        << "each once; not that of an entry that stays";
    EXPECT_TRUE(QFile::exists(d->dossier.Fichier(u"un.png"_s))) << "the answer was no";
    EXPECT_FALSE(QFile::exists(d->dossier.Fichier(u"deux.png"_s)));
    EXPECT_TRUE(QFile::exists(d->dossier.Fichier(u"commune.png"_s)));
    EXPECT_TRUE(d->doc.IlFautSauver);
}

TEST_F(FacesTest, OneAnswerMayStandForAllImagesOfADeletion)
{
    for (int i = 1; i <= 3; ++i) {
        d->dossier.Ecrire(u"%1.png"_s.arg(i), "x");
        d->table.ListItems(i).SetTag(u"%1.png"_s.arg(i));
    }
    int demandes = 0;
    face->DemanderPourImages([&](const QString&) {
        ++demandes;
        return SupprImgOuiTous;
    });
    EXPECT_EQ(zelvane::Table(face.get()).SupprimerLignes({1, 2}), 2);
    EXPECT_EQ(demandes, 1);
    EXPECT_FALSE(QFile::exists(d->dossier.Fichier(u"2.png"_s)));
    EXPECT_EQ(zelvane::Table(face.get()).SupprimerLignes({1}), 1);
    EXPECT_EQ(demandes, 2) << "asked anew by the next deletion";
}

TEST_F(FacesTest, ImagesStayWhereNobodyIsAsked)
{
    d->dossier.Ecrire(u"un.png"_s, "x");
    d->table.ListItems(1).SetTag(u"un.png"_s);
    EXPECT_EQ(zelvane::Table(face.get()).SupprimerLignes({1}), 1);
    EXPECT_TRUE(QFile::exists(d->dossier.Fichier(u"un.png"_s)));
    d->doc.IlFautSauver = false;
    EXPECT_EQ(zelvane::Table(face.get()).SupprimerLignes({7}), 0);
    EXPECT_FALSE(d->doc.IlFautSauver) << "nothing was deleted";
}

TEST_F(FacesTest, ADocumentThatGoesWhileItsUserIsAskedIsLeftAlone)
{
    for (int i = 1; i <= 2; ++i) {
        d->dossier.Ecrire(u"%1.png"_s.arg(i), "x");
        d->table.ListItems(i).SetTag(u"%1.png"_s.arg(i));
    }
    int demandes = 0;
    face->DemanderPourImages([&](const QString&) {
        ++demandes;
        d.reset();
        return SupprImgNon;
    });
    EXPECT_EQ(zelvane::Table(face.get()).SupprimerLignes({1, 2}), 0);
    EXPECT_EQ(demandes, 1);
}

TEST_F(FacesTest, ColumnsAndTheOrderAreTheTables)
{
    QObject* colonne = Objet(Colonnes(), "Item", Q_ARG(int, 1));
    ASSERT_TRUE(colonne);
    colonne->setProperty("Width", 720.0);
    colonne->setProperty("Text", "Disque");
    colonne->setProperty("Icon", "loin");
    EXPECT_EQ(d->table.ColumnHeaders(1).Width(), 720.0F);
    EXPECT_EQ(d->table.ColumnHeaders(1).Text(), "Disque");
    EXPECT_EQ(d->table.ColumnHeaders(1).Icon(), "");
    QObject* table = Sous("MyLV");
    table->setProperty("SortKey", 0);
    table->setProperty("SortOrder", 1);
    table->setProperty("Sorted", true);
    EXPECT_EQ(ColonneDe(d->table, 1), QStringList({"Chet", "Blue", "Aja"}));
    EXPECT_EQ(table->property("View").toInt(), 3);
    EXPECT_TRUE(Vrai(Colonnes(), "Remove", Q_ARG(int, 2)));
    EXPECT_FALSE(Vrai(Colonnes(), "Remove", Q_ARG(int, 2)));
    EXPECT_FALSE(Objet(Colonnes(), "Item", Q_ARG(int, 2)));
}

TEST_F(FacesTest, TheMarkerFollowsTheImage)
{
    d->dossier.Ecrire(u"la.png"_s, "x");
    QObject* entree = Objet(Entrees(), "Item", Q_ARG(int, 1));
    entree->setProperty("Tag", "la.png");
    EXPECT_EQ(entree->property("SmallIcon").toString(), "ico");
    entree->setProperty("Tag", "absente.png");
    EXPECT_EQ(entree->property("SmallIcon").toString(), "icoerror");
    entree->setProperty("Tag", "");
    EXPECT_EQ(entree->property("SmallIcon").toString(), "noico");
}

TEST_F(FacesTest, NothingIsTouchedOnceTheDocumentHasGone)
{
    QObject* entree = Objet(Entrees(), "Item", Q_ARG(int, 1));
    QObject* entrees = Entrees();
    QObject* table = Sous("MyLV");
    d.reset();
    EXPECT_EQ(face->property("ItemsCount").toInt(), 0);
    face->setProperty("IlFautSauver", true);
    entree->setProperty("Text", "x");
    EXPECT_EQ(entree->property("Text").toString(), "");
    EXPECT_FALSE(Objet(entrees, "Item", Q_ARG(int, 1)));
    EXPECT_FALSE(Objet(entrees, "Add", Q_ARG(int, 0), Q_ARG(QString, QString()), Q_ARG(QString, u"x"_s)));
    table->setProperty("Sorted", true);
    EXPECT_TRUE(QMetaObject::invokeMethod(face.get(), "ClearLV"));
    EXPECT_FALSE(zelvane::Table(face.get()).AjouterLignes({}));
}
