#include "EcrireJson.h"

#include "DocumentAExporter.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EcrireJsonTest : public testing::Test
{
protected:
    Fin Ecrire() { return EcrireJson(d.Tout(), d.dossier.Fichier(u"a.json"_s), temoin); }
    QJsonObject Relire() const { return QJsonDocument::fromJson(d.dossier.Lire(u"a.json"_s)).object(); }

    DocumentAExporter d;
    Temoin temoin;
};

} // namespace

TEST(ClesDesColonnes, AreTheTitlesMadeDifferent)
{
    EXPECT_EQ(ClesDesColonnes({"Titre", "Artiste"}), QStringList({"Titre", "Artiste"}));
    EXPECT_EQ(ClesDesColonnes({"A", "A", "A (2)", "A"}), QStringList({"A", "A (3)", "A (2)", "A (4)"}))
        << "a title that is there is nobody else's";
    EXPECT_EQ(ClesDesColonnes({"", "colonne 1", ""}), QStringList({"colonne 1 (2)", "colonne 1", "colonne 3"}));
    EXPECT_EQ(ClesDesColonnes({"image", "Image"}), QStringList({"image (2)", "Image"}));
    EXPECT_EQ(ClesDesColonnes({}), QStringList());
}

TEST(ClesDesColonnes, ManyEqualTitlesDoNotTakeTheSquareOfTheTime)
{
    const QStringList cles = ClesDesColonnes(QStringList(200'000, u"A"_s));
    EXPECT_EQ(cles.last(), "A (200000)");
    EXPECT_EQ(QSet<QString>(cles.begin(), cles.end()).size(), 200'000);
}

TEST_F(EcrireJsonTest, TheFileIsWhatTheDocumentationSays)
{
    MettreColonnes(d.table, {"Titre", "Prêté"});
    AjouterEntrees(d.table, {{"Été \"live\"", ""}, {"Blue", "Ida - 01/02/2026"}});
    d.table.ListItems(2).SetTag(u"bleu.png"_s);
    d.doc.IndexColPrete = 2;
    d.doc.dependantcol = 1;
    d.doc.SetCheminReel(u"/x/disques.qrt"_s);
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(QString::fromUtf8(d.dossier.Lire(u"a.json"_s)), QStringLiteral(R"({
"format": "zelvane",
"version": 1,
"titre": "disques",
"colonnes": [
{"cle": "Titre", "titre": "Titre"},
{"cle": "Prêté", "titre": "Prêté"}
],
"colonnePrete": "Prêté",
"colonneDependante": "Titre",
"nombre": 2,
"entrees": [
{"Titre": "Été \"live\"", "Prêté": ""},
{"Titre": "Blue", "Prêté": "Ida - 01/02/2026", "image": "bleu.png"}
]
}
)"));
    EXPECT_EQ(Relire()[u"entrees"_s].toArray().at(1)[u"image"_s].toString(), "bleu.png");
}

TEST_F(EcrireJsonTest, ColumnsThatAreNotThereAreNone)
{
    MettreColonnes(d.table, {"Titre"});
    for (const int colonne : {-1, 0, 2}) {
        d.doc.IndexColPrete = colonne;
        d.doc.dependantcol = colonne;
        ASSERT_EQ(Ecrire(), Fin::Faite);
        EXPECT_TRUE(Relire()[u"colonnePrete"_s].isNull());
        EXPECT_TRUE(Relire()[u"colonneDependante"_s].isNull());
    }
}

TEST_F(EcrireJsonTest, TitlesMayBeAnything)
{
    MettreColonnes(d.table, {"", "A\"\\", "A\"\\", "image"});
    AjouterEntrees(d.table, {{"a", "b", "c", "d"}});
    d.table.ListItems(1).SetTag(u"x.png"_s);
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(Relire()[u"entrees"_s].toArray().at(0).toObject(), QJsonObject({{u"colonne 1"_s, u"a"_s},
                                                                              {u"A\"\\"_s, u"b"_s},
                                                                              {u"A\"\\ (2)"_s, u"c"_s},
                                                                              {u"image (2)"_s, u"d"_s},
                                                                              {u"image"_s, u"x.png"_s}}));
    EXPECT_EQ(Relire()[u"colonnes"_s].toArray().at(2)[u"titre"_s].toString(), "A\"\\");
    EXPECT_TRUE(Relire()[u"colonnePrete"_s].isNull());
    EXPECT_TRUE(Relire()[u"colonneDependante"_s].isNull());
}

TEST_F(EcrireJsonTest, AnEmptyCategoryIsWrittenToo)
{
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(Relire()[u"colonnes"_s].toArray().size(), 0);
    EXPECT_TRUE(Relire()[u"entrees"_s].isArray());
    EXPECT_EQ(Relire()[u"nombre"_s].toInt(-1), 0);
    MettreColonnes(d.table, {"Titre"});
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(Relire()[u"colonnes"_s].toArray().size(), 1);
    EXPECT_TRUE(temoin.pas.isEmpty());
}

TEST_F(EcrireJsonTest, ManyEntriesGoOutInPieces)
{
    d.Remplir(3 * TableExportee::CellulesParPaquet + 5);
    qint64 dejaSurLeDisque = 0;
    temoin.aChaquePas = [&](int) {
        for (const QString& nom : d.Fichiers())
            dejaSurLeDisque = std::max(dejaSurLeDisque, QFileInfo(d.dossier.Fichier(nom)).size());
        return true;
    };
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_GT(dejaSurLeDisque, 0) << "it is not kept in memory to the end";
    const QJsonArray entrees = Relire()[u"entrees"_s].toArray();
    ASSERT_EQ(entrees.size(), 3 * TableExportee::CellulesParPaquet + 5);
    for (int i = 0; i < entrees.size(); ++i)
        ASSERT_EQ(entrees.at(i)[u"Rang"_s].toString(), QString::number(i + 1));
    ASSERT_EQ(temoin.pas.size(), 4);
    EXPECT_EQ(temoin.pas.first().first, TableExportee::CellulesParPaquet);
    EXPECT_EQ(temoin.pas.last(), std::pair(int64_t{18'005}, int64_t{18'005}));
}

TEST_F(EcrireJsonTest, ARowOfVeryManyColumnsIsAPieceOfItsOwn)
{
    QStringList titres;
    for (int i = 0; i < TableExportee::CellulesParPaquet + 1; ++i)
        titres.append(QString::number(i));
    MettreColonnes(d.table, titres);
    ASSERT_TRUE(zelvane::Table(&d.face).AjouterLignes(titres + titres));
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(Relire()[u"entrees"_s].toArray().at(1)[titres.last()].toString(), titres.last());
    EXPECT_EQ(temoin.pas.size(), 2);
}

TEST_F(EcrireJsonTest, GivingUpLeavesTheEarlierFile)
{
    d.Remplir(3 * TableExportee::CellulesParPaquet);
    d.dossier.Ecrire(u"a.json"_s, "avant");
    const QStringList fichiers = d.Fichiers();
    temoin.aChaquePas = [](int pas) { return pas < 2; };
    EXPECT_EQ(Ecrire(), Fin::Abandonnee);
    EXPECT_EQ(temoin.pas.size(), 2);
    EXPECT_EQ(d.dossier.Lire(u"a.json"_s), "avant");
    EXPECT_EQ(d.Fichiers(), fichiers);
}

TEST_F(EcrireJsonTest, ATableThatChangesMeanwhileEndsIt)
{
    d.Remplir(3 * TableExportee::CellulesParPaquet);
    d.dossier.Ecrire(u"a.json"_s, "avant");
    temoin.aChaquePas = [this](int) { return zelvane::Table(&d.face).AjouterLignes({u"neuf"_s}); };
    EXPECT_EQ(Ecrire(), Fin::TableChangee);
    EXPECT_EQ(d.dossier.Lire(u"a.json"_s), "avant");
    temoin.aChaquePas = [this](int) {
        d.face.ClearLV();
        return true;
    };
    EXPECT_EQ(Ecrire(), Fin::TableChangee);
    EXPECT_EQ(d.dossier.Lire(u"a.json"_s), "avant");
}

TEST_F(EcrireJsonTest, ADocumentThatGivesNoRowsIsNotTakenForAnEmptyOne)
{
    QObject table;
    table.setProperty("LignesCount", 1);
    table.setProperty("ColonnesCount", 1);
    table.setProperty("Titres", QStringList("Titre"));
    QObject document;
    document.setProperty("MyLV", QVariant::fromValue(&table));
    EXPECT_EQ(EcrireJson(TableExportee(&document), d.dossier.Fichier(u"a.json"_s), temoin), Fin::TableChangee);
    EXPECT_EQ(EcrireJson(TableExportee(nullptr), d.dossier.Fichier(u"a.json"_s), temoin), Fin::Faite)
        << "without a document there is nothing to lose";
}

TEST_F(EcrireJsonTest, NothingIsLaidIntoAFolderThatIsMissing)
{
    d.Remplir(1);
    EXPECT_EQ(EcrireJson(d.Tout(), d.dossier.Fichier(u"absent/a.json"_s), temoin), Fin::DossierAbsent);
    EXPECT_FALSE(d.dossier.Existe(u"absent"_s));
}
