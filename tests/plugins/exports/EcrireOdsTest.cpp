#include "EcrireOds.h"

#include "DocumentAExporter.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <zip.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Type = "application/vnd.oasis.opendocument.spreadsheet";

struct Partie
{
    QString nom;
    QByteArray contenu;
    int methode;
};

QList<Partie> PartiesDe(const QString& chemin)
{
    QList<Partie> parties;
    zip_t* archive = zip_open(QFile::encodeName(chemin).constData(), ZIP_RDONLY | ZIP_CHECKCONS, nullptr);
    for (zip_int64_t i = 0; archive && i < zip_get_num_entries(archive, 0); ++i) {
        zip_stat_t etat;
        zip_stat_index(archive, static_cast<zip_uint64_t>(i), 0, &etat);
        Partie partie{QString::fromUtf8(etat.name), QByteArray(static_cast<qsizetype>(etat.size), '\0'),
                      etat.comp_method};
        zip_file_t* fichier = zip_fopen_index(archive, static_cast<zip_uint64_t>(i), 0);
        EXPECT_EQ(zip_fread(fichier, partie.contenu.data(), etat.size), static_cast<zip_int64_t>(etat.size));
        EXPECT_EQ(zip_fclose(fichier), 0) << "its checksum";
        parties.append(partie);
    }
    if (archive)
        zip_discard(archive);
    return parties;
}

struct CelluleLue
{
    QString texte;
    QString type;
    QString valeur;
    QString style;
    bool operator==(const CelluleLue&) const = default;
};

struct FeuilleLue
{
    QString nom;
    QList<QPair<QString, QString>> colonnes; ///< their style, and that of their cells
    QList<QList<CelluleLue>> lignes;
    int lignesDeTitres = 0; ///< repeated on each page
    QStringList Colonne(int rang) const
    {
        QStringList textes;
        for (const auto& ligne : lignes)
            textes.append(ligne.value(rang).texte);
        return textes;
    }
};

/// Reads as a spreadsheet does: blanks in a row are one unless they are marked.
CelluleLue LireCellule(QXmlStreamReader& xml)
{
    const auto attributs = xml.attributes();
    const auto attribut = [&attributs](QStringView nom) {
        for (const auto& un : attributs) {
            if (un.qualifiedName() == nom)
                return un.value().toString();
        }
        return QString();
    };
    CelluleLue cellule{QString(), attribut(u"office:value-type"), attribut(u"office:value"),
                       attribut(u"table:style-name")};
    int paragraphes = 0;
    while (!(xml.readNext() == QXmlStreamReader::EndElement && xml.name() == u"table-cell") && !xml.atEnd()) {
        if (xml.isCharacters())
            cellule.texte += xml.text().toString().replace(QRegularExpression(u" +"_s), u" "_s);
        else if (xml.isStartElement() && xml.name() == u"p" && paragraphes++ > 0)
            cellule.texte += u'\n';
        else if (xml.isStartElement() && xml.name() == u"tab")
            cellule.texte += u'\t';
        else if (xml.isStartElement() && xml.name() == u"s")
            cellule.texte += QString(xml.attributes().isEmpty() ? 1 : xml.attributes().first().value().toInt(), u' ');
    }
    return cellule;
}

QList<FeuilleLue> FeuillesDe(const QByteArray& contenu)
{
    QList<FeuilleLue> feuilles;
    QXmlStreamReader xml(contenu);
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        const auto attribut = [&xml](const char* nom) {
            return xml.attributes()
                .value(u"urn:oasis:names:tc:opendocument:xmlns:table:1.0"_s, QString::fromLatin1(nom))
                .toString();
        };
        if (xml.name() == u"table")
            feuilles.append({attribut("name"), {}, {}});
        else if (xml.name() == u"table-column")
            feuilles.last().colonnes.append({attribut("style-name"), attribut("default-cell-style-name")});
        else if (xml.name() == u"table-header-rows")
            feuilles.last().lignesDeTitres = 1;
        else if (xml.name() == u"table-row")
            feuilles.last().lignes.append(QList<CelluleLue>());
        else if (xml.name() == u"table-cell")
            feuilles.last().lignes.last().append(LireCellule(xml));
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return feuilles;
}

class EcrireOdsTest : public testing::Test
{
protected:
    Fin Ecrire(LimitesOds limites = {})
    {
        return EcrireOds(d.Tout(), {u"Catégorie"_s, u"Image"_s}, d.dossier.Fichier(u"a.ods"_s), temoin, limites);
    }
    QByteArray Partie(const QString& nom) const
    {
        for (const auto& partie : PartiesDe(d.dossier.Fichier(u"a.ods"_s))) {
            if (partie.nom == nom)
                return partie.contenu;
        }
        return {};
    }
    QList<FeuilleLue> Relire() const { return FeuillesDe(Partie(u"content.xml"_s)); }

    DocumentAExporter d;
    Temoin temoin;
};

} // namespace

TEST_F(EcrireOdsTest, ThePackageHasItsPartsInOrder)
{
    d.Remplir(2);
    ASSERT_EQ(Ecrire(), Fin::Faite);
    const QByteArray octets = d.dossier.Lire(u"a.ods"_s);
    EXPECT_EQ(octets.mid(30, 8 + qsizetype(strlen(Type))), QByteArray("mimetype") + Type) << "where programs look";
    const QList<::Partie> parties = PartiesDe(d.dossier.Fichier(u"a.ods"_s));
    QStringList noms;
    for (const auto& partie : parties) {
        noms.append(partie.nom);
        EXPECT_EQ(partie.methode, partie.nom == "mimetype" ? ZIP_CM_STORE : ZIP_CM_DEFLATE);
    }
    EXPECT_EQ(noms, QStringList({"mimetype", "META-INF/manifest.xml", "content.xml", "styles.xml", "meta.xml",
                                 "settings.xml"}));
    for (const QString& nom : noms)
        EXPECT_EQ(octets.mid(octets.indexOf(nom.toUtf8()) - 2, 2), QByteArray(2, '\0'))
            << nom.toStdString() << " has an extension, which not all readers know";
    const QByteArray manifeste = parties[1].contenu;
    for (const QString& nom : noms.mid(2))
        EXPECT_TRUE(manifeste.contains("full-path=\"" + nom.toUtf8() + "\" manifest:media-type=\"text/xml\""));
    EXPECT_TRUE(
        manifeste.contains(QByteArray("full-path=\"/\" manifest:version=\"1.2\" manifest:media-type=\"") + Type));
    for (const auto& partie : parties.mid(1)) {
        QXmlStreamReader xml(partie.contenu);
        while (!xml.atEnd())
            xml.readNext();
        EXPECT_FALSE(xml.hasError()) << partie.nom.toStdString() << xml.errorString().toStdString();
    }
}

TEST_F(EcrireOdsTest, TitlesAndEntriesAreInTheSheet)
{
    MettreColonnes(d.table, {"Titre", "Année", "ISBN"});
    AjouterEntrees(d.table, {{"Été & <live>", "1969", "0140449132"}, {" deux  blancs ", "", "2070360024"}});
    d.doc.SetCheminReel(u"/x/disques.QRT"_s);
    ASSERT_EQ(Ecrire(), Fin::Faite);
    const QList<FeuilleLue> feuilles = Relire();
    ASSERT_EQ(feuilles.size(), 1);
    EXPECT_EQ(feuilles[0].nom, "disques");
    ASSERT_EQ(feuilles[0].lignes.size(), 3);
    EXPECT_EQ(feuilles[0].lignesDeTitres, 1);
    EXPECT_EQ(feuilles[0].lignes[0][1], (CelluleLue{u"Année"_s, u"string"_s, QString(), u"titre"_s}));
    EXPECT_EQ(feuilles[0].Colonne(0), QStringList({"Titre", "Été & <live>", " deux  blancs "}));
    EXPECT_EQ(feuilles[0].lignes[1][1], (CelluleLue{u"1969"_s, u"float"_s, u"1969"_s, QString()}));
    EXPECT_EQ(feuilles[0].lignes[2][1], CelluleLue());
    EXPECT_EQ(feuilles[0].lignes[1][2], (CelluleLue{u"0140449132"_s, u"string"_s, QString(), QString()}));
    EXPECT_EQ(feuilles[0].lignes[2].size(), 3) << "no image, and no column of them";
    EXPECT_TRUE(Partie(u"meta.xml"_s).contains("<dc:title>disques</dc:title>"));
}

TEST_F(EcrireOdsTest, ColumnsHaveTheirWidthsAndTheirNumbers)
{
    MettreColonnes(d.table, {"Titre", "Prix", "An"});
    AjouterEntrees(d.table, {{"x", "12,50", "7"}, {"dix signes", "1.00", "1969"}});
    ASSERT_EQ(Ecrire(), Fin::Faite);
    const FeuilleLue feuille = Relire().constFirst();
    EXPECT_EQ(feuille.colonnes,
              (QList<QPair<QString, QString>>{{u"co10"_s, u"ceT"_s}, {u"co5"_s, u"ce2"_s}, {u"co4"_s, u"ce0"_s}}));
    EXPECT_EQ(feuille.lignes[1][1].valeur, "12.50");
    EXPECT_EQ(feuille.lignes[1][1].texte, "12,50");
    const QByteArray contenu = Partie(u"content.xml"_s);
    EXPECT_TRUE(contenu.contains("style:name=\"co10\" style:family=\"table-column\"><style:table-column-properties "
                                 "style:column-width=\"25.0mm\"/>"));
    EXPECT_TRUE(contenu.contains("<number:number-style style:name=\"N2\"><number:number number:decimal-places=\"2\""));
    EXPECT_TRUE(contenu.contains("<number:number-style style:name=\"N0\"><number:number number:decimal-places=\"0\""));
    EXPECT_TRUE(contenu.contains("style:name=\"ce2\" style:family=\"table-cell\" style:parent-style-name=\"Default\" "
                                 "style:data-style-name=\"N2\""));
    EXPECT_TRUE(contenu.contains("fo:font-weight=\"bold\""));
}

TEST_F(EcrireOdsTest, ImagesHaveAColumnWhereThereAreSome)
{
    MettreColonnes(d.table, {"Titre"});
    AjouterEntrees(d.table, {{"Aja"}, {"Blue"}});
    d.table.ListItems(2).SetTag(u"bleu.png"_s);
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(Relire().constFirst().Colonne(1), QStringList({"Image", "", "bleu.png"}));
    EXPECT_EQ(Relire().constFirst().colonnes.size(), 2);
}

TEST_F(EcrireOdsTest, WhatXmlCannotHoldIsReplaced)
{
    MettreColonnes(d.table, {"T\u0001"});
    AjouterEntrees(d.table, {{u"a\u0002b"_s}});
    d.doc.SetCheminReel(u"/x/a\u0003b.qrt"_s);
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(Relire().constFirst().Colonne(0), QStringList({u"T\uFFFD"_s, u"a\uFFFDb"_s}));
    EXPECT_EQ(Relire().constFirst().nom, "ab");
    EXPECT_TRUE(Partie(u"meta.xml"_s).contains(QString(u"a\uFFFDb"_s).toUtf8()));
}

TEST_F(EcrireOdsTest, ASheetThatIsFullIsFollowedByAnother)
{
    d.Remplir(7);
    d.doc.SetCheminReel(u"/x/disques.qrt"_s);
    ASSERT_EQ(Ecrire({4, 16'384}), Fin::Faite);
    const QList<FeuilleLue> feuilles = Relire();
    ASSERT_EQ(feuilles.size(), 3);
    EXPECT_EQ(feuilles[0].nom, "disques");
    EXPECT_EQ(feuilles[2].nom, "disques (3)");
    EXPECT_EQ(feuilles[0].Colonne(0), QStringList({"Rang", "1", "2", "3"}));
    EXPECT_EQ(feuilles[1].Colonne(0), QStringList({"Rang", "4", "5", "6"}));
    EXPECT_EQ(feuilles[2].Colonne(0), QStringList({"Rang", "7"}));
    EXPECT_EQ(feuilles[2].colonnes.size(), 1);
    ASSERT_EQ(Ecrire({8, 16'384}), Fin::Faite);
    EXPECT_EQ(Relire().size(), 1) << "it just fits";
}

TEST_F(EcrireOdsTest, TheTitlesOfEachSheetStayInSight)
{
    d.Remplir(5);
    d.doc.SetCheminReel(u"/x/a&b.qrt"_s);
    ASSERT_EQ(Ecrire({4, 16'384}), Fin::Faite);
    const QByteArray reglages = Partie(u"settings.xml"_s);
    EXPECT_EQ(reglages.count("config:name=\"VerticalSplitMode\" config:type=\"short\">2<"), 2);
    EXPECT_EQ(reglages.count("config:name=\"VerticalSplitPosition\" config:type=\"int\">1<"), 2);
    EXPECT_TRUE(reglages.contains("config:name=\"a&amp;b (2)\""));
    EXPECT_TRUE(reglages.contains("config:name=\"ActiveTable\" config:type=\"string\">a&amp;b<"));
}

TEST_F(EcrireOdsTest, NamesOfSheetsAreThoseThatSpreadsheetsTake)
{
    d.Remplir(5);
    const auto nomsAvec = [this](const QString& fichier) {
        d.doc.SetCheminReel(u"/x/"_s + fichier);
        EXPECT_EQ(Ecrire({4, 16'384}), Fin::Faite);
        return QStringList{Relire().value(0).nom, Relire().value(1).nom};
    };
    EXPECT_EQ(nomsAvec(u"[a]*b?c:de'.qrt"_s), QStringList({"abcde", "abcde (2)"}));
    EXPECT_EQ(nomsAvec(u"' disques '.qrt"_s).constFirst(), "disques");
    EXPECT_EQ(nomsAvec(u"''.qrt"_s), QStringList({"Catégorie", "Catégorie (2)"}));
    EXPECT_EQ(nomsAvec(QString(40, u'x') + u".qrt"_s), QStringList({QString(31, u'x'), QString(27, u'x') + " (2)"}));
    EXPECT_EQ(nomsAvec(QString(30, u'x') + u"😀.qrt"_s).constFirst(), QString(30, u'x')) << "no half of a character";
}

TEST_F(EcrireOdsTest, AnEmptyCategoryIsASheetToo)
{
    ASSERT_EQ(Ecrire(), Fin::Faite);
    ASSERT_EQ(Relire().size(), 1);
    EXPECT_EQ(Relire()[0].nom, "Catégorie");
    EXPECT_EQ(Relire()[0].colonnes.size(), 1) << "a sheet without a column is none";
    MettreColonnes(d.table, {"Titre"});
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(Relire()[0].Colonne(0), QStringList("Titre"));
}

TEST_F(EcrireOdsTest, TheSameTableGivesTheSameBytes)
{
    d.Remplir(TableExportee::CellulesParPaquet + 5);
    ASSERT_EQ(Ecrire(), Fin::Faite);
    const QByteArray premiere = d.dossier.Lire(u"a.ods"_s);
    for (const auto& partie : {10, 12}) // time and date of the first part
        EXPECT_EQ(premiere.mid(partie, 2), partie == 10 ? QByteArray(2, '\0') : QByteArray("\x21\0", 2));
    ASSERT_EQ(Ecrire(), Fin::Faite);
    EXPECT_EQ(d.dossier.Lire(u"a.ods"_s), premiere);
}

TEST_F(EcrireOdsTest, ManyEntriesGoOutInPieces)
{
    d.Remplir(3 * TableExportee::CellulesParPaquet + 5);
    ASSERT_EQ(Ecrire(), Fin::Faite);
    const QStringList rangs = Relire().constFirst().Colonne(0);
    ASSERT_EQ(rangs.size(), 3 * TableExportee::CellulesParPaquet + 6);
    for (int i = 1; i < rangs.size(); ++i)
        ASSERT_EQ(rangs.at(i), QString::number(i));
    ASSERT_EQ(temoin.pas.size(), 8);
    for (qsizetype i = 1; i < temoin.pas.size(); ++i)
        EXPECT_GT(temoin.pas[i].first, temoin.pas[i - 1].first);
    EXPECT_EQ(temoin.pas.last().first, temoin.pas.last().second);
}

TEST_F(EcrireOdsTest, GivingUpAtAnyTimeLeavesTheEarlierFile)
{
    d.Remplir(2 * TableExportee::CellulesParPaquet);
    d.dossier.Ecrire(u"a.ods"_s, "avant");
    const QStringList fichiers = d.Fichiers();
    for (int dernier = 1; dernier <= 4; ++dernier) {
        temoin.pas.clear();
        temoin.aChaquePas = [dernier](int pas) { return pas < dernier; };
        EXPECT_EQ(Ecrire(), Fin::Abandonnee) << dernier;
        EXPECT_EQ(d.dossier.Lire(u"a.ods"_s), "avant");
        EXPECT_EQ(d.Fichiers(), fichiers);
    }
}

TEST_F(EcrireOdsTest, ATableThatChangesMeanwhileEndsIt)
{
    for (const int quand : {1, 3}) {
        d.Remplir(2 * TableExportee::CellulesParPaquet);
        d.dossier.Ecrire(u"a.ods"_s, "avant");
        temoin.pas.clear();
        temoin.aChaquePas = [this, quand](int pas) {
            if (pas == quand)
                d.face.ClearLV();
            return true;
        };
        EXPECT_EQ(Ecrire(), Fin::TableChangee) << quand;
        EXPECT_EQ(d.dossier.Lire(u"a.ods"_s), "avant");
    }
}

// As many entries as before, with longer values: no row is missing, but the length that was told ahead is wrong.
TEST_F(EcrireOdsTest, ValuesThatChangeMeanwhileEndItToo)
{
    d.Remplir(2 * TableExportee::CellulesParPaquet);
    d.dossier.Ecrire(u"a.ods"_s, "avant");
    temoin.aChaquePas = [this](int pas) {
        return pas != 2 || zelvane::Table(&d.face).EcrireLignes(1, {u"un texte plus long"_s});
    };
    EXPECT_EQ(Ecrire(), Fin::TableChangee);
    EXPECT_EQ(d.dossier.Lire(u"a.ods"_s), "avant");
}

TEST_F(EcrireOdsTest, MoreColumnsThanASheetHoldsAreRefused)
{
    MettreColonnes(d.table, {"A", "B", "C"});
    AjouterEntrees(d.table, {{"a", "b", "c"}});
    EXPECT_EQ(Ecrire({100, 2}), Fin::TropDeColonnes);
    EXPECT_TRUE(temoin.pas.isEmpty()) << "before the entries are looked at";
    EXPECT_EQ(Ecrire({100, 3}), Fin::Faite);
    d.table.ListItems(1).SetTag(u"x.png"_s);
    EXPECT_EQ(Ecrire({100, 3}), Fin::TropDeColonnes) << "with that of the images";
    EXPECT_EQ(Ecrire({100, 4}), Fin::Faite);
}

// A limit of the process stands in for the end of a disk.
TEST_F(EcrireOdsTest, AFullDiskIsToldAndLeavesTheEarlierFile)
{
    d.Remplir(TableExportee::CellulesParPaquet);
    d.dossier.Ecrire(u"a.ods"_s, "avant");
    const QStringList fichiers = d.Fichiers();
    struct rlimit avant = {};
    getrlimit(RLIMIT_FSIZE, &avant);
    auto* const signal = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit petite = {16'384, avant.rlim_max};
    setrlimit(RLIMIT_FSIZE, &petite);
    const Fin fin = Ecrire();
    setrlimit(RLIMIT_FSIZE, &avant);
    std::signal(SIGXFSZ, signal);
    EXPECT_EQ(fin, Fin::DisquePlein);
    EXPECT_EQ(d.dossier.Lire(u"a.ods"_s), "avant");
    EXPECT_EQ(d.Fichiers(), fichiers);
}

TEST_F(EcrireOdsTest, NothingIsLookedAtWhereNothingCanBeWritten)
{
    d.Remplir(2);
    EXPECT_EQ(EcrireOds(d.Tout(), {}, d.dossier.Fichier(u"absent/a.ods"_s), temoin), Fin::DossierAbsent);
    EXPECT_TRUE(temoin.pas.isEmpty());
}
