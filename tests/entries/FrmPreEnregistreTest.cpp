// What a user sees and does in the dialog of the pre-recorded texts.
#include "entries/frmPreEnregistre.h"

#include "catalogue/texte/Categorie.h"
#include "entries/mPreenregistre.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "support/Accessibilite.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/SuiteDeModales.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// What a column (from 0) of the dialog of the mapping shows.
QStringList Cellules(const QWidget& rangs, int colonne)
{
    const QAbstractItemModel& modele = *rangs.findChild<QAbstractItemView*>(u"ListView1"_s)->model();
    QStringList cellules;
    for (int i = 0; i < modele.rowCount(); ++i)
        cellules.append(modele.index(i, colonne).data().toString());
    return cellules;
}

class FrmPreEnregistre : public testing::Test
{
protected:
    void Ouvrir(ListesDeColonnes colonnes = {{u"Titre"_s, u"a|b|c"_s}, {u"Genre"_s, u""_s}, {u"Prêté"_s, u""_s}})
    {
        form = std::make_unique<frmPreEnregistre>(std::move(colonnes));
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    template<class Controle> Controle& Le(const char* nom) { return *form->findChild<Controle*>(QLatin1String(nom)); }
    QListView& List1() { return Le<QListView>("List1"); }
    QTabBar& TabStrip1() { return Le<QTabBar>("TabStrip1"); }
    QPushButton& Bouton(const char* nom) { return Le<QPushButton>(nom); }
    void Cliquer(const char* nom) { QTest::mouseClick(&Bouton(nom), Qt::LeftButton); }
    QWidget& Outil(const char* cle)
    {
        return *Le<QToolBar>("Toolbar1").widgetForAction(form->findChild<QAction*>(QLatin1String(cle)));
    }
    void CliquerOutil(const char* cle) { QTest::mouseClick(&Outil(cle), Qt::LeftButton); }
    void AllerA(int onglet)
    {
        QTest::mouseClick(&TabStrip1(), Qt::LeftButton, {}, TabStrip1().tabRect(onglet).center());
    }
    void Choisir(int ligne, Qt::KeyboardModifiers avec = {})
    {
        const QRect place = List1().visualRect(List1().model()->index(ligne, 0));
        QTest::mouseClick(List1().viewport(), Qt::LeftButton, avec, place.center());
    }
    QStringList Lignes()
    {
        QStringList lignes;
        for (int i = 0; i < List1().model()->rowCount(); ++i)
            lignes.append(List1().model()->index(i, 0).data().toString());
        return lignes;
    }
    QString Liste(size_t onglet) const { return form->Colonnes()[onglet].liste; }
    void Ajouter(const QString& texte)
    {
        reponses.PreparerTexte(texte);
        CliquerOutil("add");
    }
    std::optional<QString>& Presse() { return PlateformeDeTest::Courante().pressePapiers.texte; }
    QString Echange() const { return plateforme().dossierProgramme + u"~qrtCopier.tmp"_s; }

    const QStringList rien{u"...Aucune Info..."_s};
    FileDeReponses reponses;
    std::unique_ptr<frmPreEnregistre> form;
};

} // namespace

TEST_F(FrmPreEnregistre, ShowsTheTextsOfTheFirstColumn)
{
    Ouvrir();
    EXPECT_EQ(form->windowTitle(), u"Texte PréEnregistré"_s);
    EXPECT_EQ(Le<QGroupBox>("Frame3").title(), u"Liste des infos deja eregistrées"_s);
    EXPECT_EQ(Lignes(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_TRUE(List1().isEnabled());
    EXPECT_TRUE(List1().selectionModel()->selectedRows().isEmpty());
    EXPECT_EQ(TabStrip1().count(), 3);
    EXPECT_EQ(TabStrip1().tabText(0), u"Titre"_s);
    EXPECT_EQ(TabStrip1().tabText(2), u"Prêté"_s);
    EXPECT_EQ(List1().selectionMode(), QAbstractItemView::ExtendedSelection);
}

TEST_F(FrmPreEnregistre, ItsButtonsSayWhatTheyDo)
{
    Ouvrir();
    EXPECT_EQ(Outil("add").toolTip(), u"Ajouter un champ préenregistré"_s);
    EXPECT_EQ(Outil("remove").toolTip(), u"Supprimer un champ préenregistré"_s);
    EXPECT_EQ(Bouton("btCopy").text().remove('&'), u"Copier"_s);
    EXPECT_EQ(Bouton("btPaste").text().remove('&'), u"Coller"_s);
    EXPECT_EQ(Bouton("btOK").toolTip(), u"Valider les changements"_s);
    EXPECT_EQ(Bouton("btAnnuler").toolTip(), u"Annuler les modifications"_s);
    EXPECT_EQ(Bouton("btOK").icon().pixmap(16).toImage(), Icone(u"ok"_s).pixmap(16).toImage());
    EXPECT_EQ(Bouton("btAnnuler").icon().pixmap(16).toImage(), Icone(u"del"_s).pixmap(16).toImage());
    EXPECT_EQ(Le<QCheckBox>("Check1").text().remove('&'), u"Liste Exaustive"_s);
    EXPECT_TRUE(Bouton("btOK").isDefault());
    EXPECT_EQ(ControlesSansNom(*form), QStringList());
}

TEST_F(FrmPreEnregistre, SpeaksTheLanguageInForce)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        "lang/english.ini", "[frmPreEnregistre]\r\nCaption=Texts\r\nbtCopy_C=Copy\r\nToolbar1_TT_2=Remove\r\n"
                            "btOK_TT=Keep the changes\r\n");
    Ouvrir();
    EXPECT_EQ(form->windowTitle(), u"Texts"_s);
    EXPECT_EQ(Bouton("btCopy").text(), u"Copy"_s);
    EXPECT_EQ(Outil("remove").toolTip(), u"Remove"_s);
    EXPECT_EQ(Bouton("btOK").accessibleName(), u"Keep the changes"_s);
}

TEST_F(FrmPreEnregistre, AnotherTabShowsItsOwnTexts)
{
    Ouvrir();
    AllerA(1);
    EXPECT_EQ(Lignes(), rien);
    EXPECT_FALSE(List1().isEnabled());
    QTest::keyClick(&TabStrip1(), Qt::Key_Left);
    EXPECT_EQ(Lignes(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_TRUE(List1().isEnabled());
}

TEST_F(FrmPreEnregistre, ATitleIsShownAsItStands)
{
    Ouvrir({{u"Rock & Roll"_s, u""_s}});
    EXPECT_EQ(TabStrip1().tabText(0), u"Rock && Roll"_s);
}

TEST_F(FrmPreEnregistre, AddsATextBehindTheOthers)
{
    Ouvrir();
    Ajouter(u"été"_s);
    EXPECT_EQ(reponses.TextesDemandes().first().first, u"Texte à ajouter à la preselection"_s);
    EXPECT_EQ(reponses.TextesDemandes().first().second, QString());
    EXPECT_EQ(Lignes(), QStringList({u"a"_s, u"b"_s, u"c"_s, u"été"_s}));
    EXPECT_EQ(Liste(0), u"a|b|c|été"_s);
}

TEST_F(FrmPreEnregistre, TheFirstTextTakesThePlaceOfTheWordsForNone)
{
    Ouvrir();
    AllerA(1);
    Ajouter(u"rock"_s);
    EXPECT_EQ(Lignes(), QStringList({u"rock"_s}));
    EXPECT_TRUE(List1().isEnabled());
    EXPECT_EQ(Liste(1), u"rock"_s);
}

TEST_F(FrmPreEnregistre, TheSameTextTwiceIsTwoTexts)
{
    Ouvrir();
    AllerA(1);
    Ajouter(u"x"_s);
    Ajouter(u"x"_s);
    EXPECT_EQ(Lignes(), QStringList({u"x"_s, u"x"_s}));
}

TEST_F(FrmPreEnregistre, ABarMakesTwoTexts)
{
    Ouvrir();
    AllerA(1);
    Ajouter(u"x|y"_s);
    EXPECT_EQ(Lignes(), QStringList({u"x"_s, u"y"_s}));
}

TEST_F(FrmPreEnregistre, ATextHasOneLine)
{
    Ouvrir();
    AllerA(1);
    Ajouter(u"x\ny"_s);
    EXPECT_EQ(Liste(1), u"x y"_s);
}

TEST_F(FrmPreEnregistre, TheTextAddedIsInSight)
{
    Ouvrir({{u"A"_s, QStringList(500, u"texte"_s).join(u'|')}});
    Ajouter(u"dernier"_s);
    const QRect place = List1().visualRect(List1().model()->index(500, 0));
    EXPECT_TRUE(List1().viewport()->rect().contains(place));
}

TEST_F(FrmPreEnregistre, AnEmptyAnswerAddsNothing)
{
    Ouvrir();
    Ajouter(QString());
    reponses.PreparerTexte(std::nullopt);
    CliquerOutil("add");
    EXPECT_EQ(Liste(0), u"a|b|c"_s);
}

TEST_F(FrmPreEnregistre, ThePlusOfTheKeypadAdds)
{
    Ouvrir();
    reponses.PreparerTexte(u"d"_s);
    QTest::keyClick(&List1(), Qt::Key_Plus, Qt::KeypadModifier);
    reponses.PreparerTexte(u"e"_s);
    QTest::keyClick(&TabStrip1(), Qt::Key_Plus, Qt::KeypadModifier);
    EXPECT_EQ(Liste(0), u"a|b|c|d|e"_s);
    QTest::keyClick(&List1(), Qt::Key_Plus);
    EXPECT_EQ(reponses.TextesDemandes().size(), 2) << "the other plus looks for a text";
}

TEST_F(FrmPreEnregistre, TheToolsAreReachedByTheKeyboard)
{
    Ouvrir();
    for (const char* cle : {"add", "remove"})
        EXPECT_TRUE(Outil(cle).focusPolicy() & Qt::TabFocus) << cle;
    Outil("add").setFocus(Qt::TabFocusReason);
    reponses.PreparerTexte(u"d"_s);
    QTest::keyClick(form->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Liste(0), u"a|b|c|d"_s);
}

TEST_F(FrmPreEnregistre, RemovesWhatIsSelectedOnceTheUserSaysSo)
{
    Ouvrir();
    Choisir(0);
    Choisir(2, Qt::ControlModifier);
    reponses.Preparer(RepOui);
    CliquerOutil("remove");
    ASSERT_EQ(reponses.Cles(), QStringList({u"msg69"_s}));
    EXPECT_EQ(reponses.Affiches().first().message.texte,
              u"Voulez-vous supprimer le texte suivant de la liste?\r\n\"a\", \"c\", "_s);
    EXPECT_EQ(reponses.Affiches().first().genre, MsgOuiNonAnnuler);
    EXPECT_EQ(reponses.Affiches().first().titre, QString());
    EXPECT_EQ(Lignes(), QStringList({u"b"_s}));
    EXPECT_EQ(Liste(0), u"b"_s);
}

TEST_F(FrmPreEnregistre, AnyOtherAnswerRemovesNothing)
{
    Ouvrir();
    Choisir(1);
    for (const int reponse : {RepNon, RepAnnuler}) {
        reponses.Preparer(reponse);
        QTest::keyClick(&List1(), Qt::Key_Delete);
    }
    EXPECT_EQ(reponses.Cles(), QStringList({u"msg69"_s, u"msg69"_s}));
    EXPECT_EQ(Lignes(), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(Liste(0), u"a|b|c"_s);
}

TEST_F(FrmPreEnregistre, TheKeyboardGoesOnWhereATextWasRemoved)
{
    Ouvrir();
    Choisir(1);
    reponses.Preparer(RepOui);
    QTest::keyClick(&List1(), Qt::Key_Delete);
    EXPECT_EQ(List1().currentIndex().data().toString(), u"c"_s);
    Choisir(1);
    reponses.Preparer(RepOui);
    QTest::keyClick(&List1(), Qt::Key_Delete);
    EXPECT_EQ(List1().currentIndex().data().toString(), u"a"_s);
    EXPECT_EQ(Liste(0), u"a"_s);
}

TEST_F(FrmPreEnregistre, OnATabTheDeleteKeyRemovesNothing)
{
    Ouvrir();
    Choisir(1);
    TabStrip1().setFocus();
    QTest::keyClick(&TabStrip1(), Qt::Key_Delete);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
    EXPECT_EQ(Liste(0), u"a|b|c"_s);
}

TEST_F(FrmPreEnregistre, ATextIsNotEditedInTheList)
{
    Ouvrir();
    Choisir(1);
    QTest::keyClick(&List1(), Qt::Key_F2);
    EXPECT_EQ(List1().findChild<QLineEdit*>(), nullptr);
}

TEST_F(FrmPreEnregistre, NothingSelectedIsTold)
{
    Ouvrir();
    CliquerOutil("remove");
    AllerA(1); // the words for an empty list are none that could be removed
    Choisir(0);
    CliquerOutil("remove");
    EXPECT_EQ(reponses.Cles(), QStringList({u"msg70"_s, u"msg70"_s}));
    EXPECT_EQ(reponses.Affiches().first().message.texte, u"Selectionnez un texte à supprimer"_s);
    EXPECT_EQ(Liste(1), QString());
}

TEST_F(FrmPreEnregistre, AnEmptiedListStaysEmptyUntilItIsDrawnAnew)
{
    Ouvrir();
    Choisir(0);
    Choisir(2, Qt::ShiftModifier);
    reponses.Preparer(RepOui);
    QTest::keyClick(&List1(), Qt::Key_Delete);
    EXPECT_EQ(Lignes(), QStringList());
    EXPECT_TRUE(List1().isEnabled());
    EXPECT_EQ(Liste(0), QString());
    AllerA(1);
    AllerA(0);
    EXPECT_EQ(Lignes(), rien);
}

TEST_F(FrmPreEnregistre, EmptyTextsInAListStand)
{
    Ouvrir({{u"A"_s, u"|x|"_s}});
    EXPECT_EQ(Lignes(), QStringList({u""_s, u"x"_s, u""_s}));
    Choisir(1);
    reponses.Preparer(RepOui);
    QTest::keyClick(&List1(), Qt::Key_Delete);
    EXPECT_EQ(Liste(0), u"|"_s);
}

TEST_F(FrmPreEnregistre, ALongTextIsCutWhereItIsShownAlone)
{
    const QString longue(5000, u'x');
    Ouvrir({{u"A"_s, QString(longue + u"|y"_s)}});
    EXPECT_EQ(Lignes().first(), QString(longue.first(1000) + u'…'));
    Choisir(1);
    reponses.Preparer(RepOui);
    QTest::keyClick(&List1(), Qt::Key_Delete);
    EXPECT_EQ(Liste(0), longue);
}

TEST_F(FrmPreEnregistre, TheQuestionAboutThousandsOfTextsCanBeRead)
{
    Ouvrir({{u"A"_s, QStringList(30000, u"texte"_s).join(u'|')}});
    Choisir(0);
    QTest::keyClick(&List1(), Qt::Key_A, Qt::ControlModifier);
    reponses.Preparer(RepOui);
    QTest::keyClick(&List1(), Qt::Key_Delete);
    EXPECT_LT(reponses.Affiches().first().message.texte.size(), 10100);
    EXPECT_TRUE(reponses.Affiches().first().message.texte.endsWith(u'…'));
    EXPECT_EQ(Liste(0), QString());
}

// ---- the clipboard

TEST_F(FrmPreEnregistre, WithoutATextNothingIsCopied)
{
    Ouvrir({{u"A"_s, u""_s}, {u"B"_s, u""_s}});
    Presse() = u"gardé"_s;
    Cliquer("btCopy");
    ASSERT_EQ(reponses.Cles(), QStringList({u"msg97"_s}));
    EXPECT_EQ(reponses.Affiches().first().message.texte, u"Rien n'a ete copié !"_s);
    EXPECT_EQ(Presse(), u"gardé"_s);
    EXPECT_FALSE(QFile::exists(Echange()));
}

TEST_F(FrmPreEnregistre, CopiesTheColumnsThatTheUserTicks)
{
    Ouvrir({{u"Titre"_s, u"a|b"_s}, {u"Genre"_s, u"★"_s}, {u"Prêté"_s, u""_s}});
    const SuiteDeModales suite({{u"frmExport"_s, [](QWidget& choix) {
                                     EXPECT_EQ(choix.windowTitle(), u"Copier Texte Préenregistré"_s);
                                     EXPECT_EQ(choix.findChild<QLabel*>(u"Label1"_s)->text(),
                                               u"Sélectionnez quels textes vous voulez copier"_s);
                                     EXPECT_EQ(choix.findChild<QPushButton*>(u"btExporter"_s)->text(), u"Valider"_s);
                                     for (const char* option : {"Check1", "Check2", "Check3"})
                                         EXPECT_FALSE(choix.findChild<QCheckBox*>(QLatin1String(option))->isVisible());
                                     auto& liste = *choix.findChild<QListWidget*>(u"List1"_s);
                                     ASSERT_EQ(liste.count(), 3);
                                     EXPECT_EQ(liste.item(0)->text(), u"Titre"_s);
                                     for (int i = 0; i < 3; ++i)
                                         EXPECT_EQ(liste.item(i)->checkState(), Qt::Checked);
                                     liste.setFocus();
                                     QTest::keyClick(&liste, Qt::Key_Space);
                                     QTest::mouseClick(choix.findChild<QPushButton*>(u"btExporter"_s), Qt::LeftButton);
                                 }}});
    Cliquer("btCopy");
    EXPECT_EQ(Presse(), u"[Zelvane-TxtPRE]\r\nGenre\t★\r\nPrêté\t\r\n"_s);
    EXPECT_FALSE(QFile::exists(Echange()));
}

TEST_F(FrmPreEnregistre, ACopyGivenUpLeavesTheClipboardEmptyAndItsFileBehind)
{
    Ouvrir();
    Presse() = u"avant"_s;
    const SuiteDeModales suite({{u"frmExport"_s, [](QWidget& choix) { choix.close(); }}});
    Cliquer("btCopy");
    EXPECT_EQ(Presse(), std::nullopt);
    QFile fichier(Echange());
    ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
    EXPECT_EQ(fichier.readAll(), "[Zelvane-TxtPRE]\r\n");
}

TEST_F(FrmPreEnregistre, WhereTheFileCannotBeWrittenTheCopyWorks)
{
    Ouvrir();
    ASSERT_TRUE(QDir().mkdir(Echange()));
    const SuiteDeModales suite({{u"frmExport"_s, [](QWidget& choix) {
                                     QTest::mouseClick(choix.findChild<QPushButton*>(u"btExporter"_s), Qt::LeftButton);
                                 }}});
    Cliquer("btCopy");
    EXPECT_EQ(Presse(), u"[Zelvane-TxtPRE]\r\nTitre\ta|b|c\r\nGenre\t\r\nPrêté\t\r\n"_s);
    EXPECT_EQ(reponses.Cles(), QStringList({u"msgEchangeSansFichier"_s}));
    EXPECT_TRUE(reponses.Affiches().first().message.texte.contains(Echange()));
}

TEST_F(FrmPreEnregistre, PastesBehindTheTextsThatAreThere)
{
    Ouvrir();
    Presse() = u"[Zelvane-TxtPRE]\r\nNom\tx|y\r\nStyle\trock\r\nAn\t1999\r\nLieu\tici\r\n"_s;
    const SuiteDeModales suite(
        {{u"frmDragAndDrop"_s, [](QWidget& rangs) {
              EXPECT_EQ(rangs.windowTitle(), u"Coller"_s);
              EXPECT_EQ(Cellules(rangs, 0), QStringList({u"(1)Nom"_s, u"(2)Style"_s, u"(3)An"_s, u"(4)Lieu"_s}));
              EXPECT_EQ(Cellules(rangs, 1), QStringList({u"(1)Titre"_s, u"(2)Genre"_s, u"(3)Prêté"_s, u"<perdu>"_s}));
              QTest::mouseClick(rangs.findChild<QPushButton*>(u"btOK"_s), Qt::LeftButton);
          }}});
    Cliquer("btPaste");
    EXPECT_EQ(Liste(0), u"a|b|c|x|y"_s);
    EXPECT_EQ(Liste(1), u"rock"_s);
    EXPECT_EQ(Liste(2), u"1999"_s);
    EXPECT_EQ(Lignes(), QStringList({u"a"_s, u"b"_s, u"c"_s, u"x"_s, u"y"_s}));
}

TEST_F(FrmPreEnregistre, APasteGivenUpChangesNothing)
{
    Ouvrir();
    Presse() = u"[Zelvane-TxtPRE]\r\nNom\tx\r\n"_s;
    const SuiteDeModales suite(
        {{u"frmDragAndDrop"_s, [](QWidget& rangs) {
              EXPECT_EQ(Cellules(rangs, 0), QStringList({u"(1)Nom"_s, u"<vide>"_s, u"<vide>"_s}));
              rangs.close();
          }}});
    Cliquer("btPaste");
    EXPECT_EQ(Liste(0), u"a|b|c"_s);
}

TEST_F(FrmPreEnregistre, AClipboardWithAnythingElseIsIgnored)
{
    Ouvrir();
    for (const std::optional<QString>& texte : {std::optional<QString>(), std::optional(u"[Zelvane]\r\nA\tx\r\n"_s)}) {
        Presse() = texte;
        Cliquer("btPaste");
    }
    EXPECT_EQ(Liste(0), u"a|b|c"_s);
    EXPECT_TRUE(reponses.Affiches().isEmpty());
}

// ---- the category

namespace {

class TextesDUneCategorie : public testing::Test
{
protected:
    TextesDUneCategorie()
    {
        for (const QString& titre : {u"Titre"_s, u"Prêté"_s})
            doc.Table.ColumnHeaders.Add(0, titre);
        doc.Table.ColumnHeaders(1).SetTag(u"a"_s);
        doc.IlFautSauver = false;
    }
    void Gerer(const std::function<void(QWidget&)>& geste)
    {
        const SuiteDeModales suite({{u"frmPreEnregistre"_s, geste}});
        GererPreEnregistres(doc);
    }
    void AjouterPuis(QWidget& form, const char* bouton)
    {
        reponses.PreparerTexte(u"b"_s);
        form.findChild<QAction*>(u"add"_s)->trigger();
        QTest::mouseClick(form.findChild<QPushButton*>(QLatin1String(bouton)), Qt::LeftButton);
    }

    FileDeReponses reponses;
    Categorie doc;
};

} // namespace

TEST_F(TextesDUneCategorie, TakeTheirPlacesOnceValidated)
{
    Gerer([this](QWidget& form) { AjouterPuis(form, "btOK"); });
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Tag(), u"a|b"_s);
    EXPECT_EQ(doc.Table.ColumnHeaders(2).Tag(), QString());
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(TextesDUneCategorie, ValidatedUnchangedTheDocumentHasChangedAllTheSame)
{
    Gerer([](QWidget& form) { QTest::keyClick(form.findChild<QListView*>(u"List1"_s), Qt::Key_Return); });
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Tag(), u"a"_s);
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(TextesDUneCategorie, StayWhenTheUserGivesUp)
{
    Gerer([this](QWidget& form) { AjouterPuis(form, "btAnnuler"); });
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Tag(), u"a"_s);
    EXPECT_FALSE(doc.IlFautSauver);
    Gerer([](QWidget& form) { form.close(); });
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(TextesDUneCategorie, StayWhenAPasteIsNotValidated)
{
    PlateformeDeTest::Courante().pressePapiers.texte = u"[Zelvane-TxtPRE]\r\nNom\tx\r\n"_s;
    const SuiteDeModales suite({
        {u"frmPreEnregistre"_s,
         [](QWidget& form) { QTest::mouseClick(form.findChild<QPushButton*>(u"btPaste"_s), Qt::LeftButton); }},
        {u"frmDragAndDrop"_s,
         [](QWidget& rangs) { QTest::mouseClick(rangs.findChild<QPushButton*>(u"btOK"_s), Qt::LeftButton); }},
        {u"frmPreEnregistre"_s, [](QWidget& form) { form.close(); }},
    });
    GererPreEnregistres(doc);
    EXPECT_EQ(doc.Table.ColumnHeaders(1).Tag(), u"a"_s);
}
