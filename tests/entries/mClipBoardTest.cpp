#include "entries/mClipBoard.h"
#include "SelectionDeTest.h"

#include "entries/Echange.h"
#include "entries/FichierDEchange.h"
#include "entries/frmDragAndDrop.h"
#include "kit/frmAvancement.h"
#include "support/FileDeReponses.h"
#include "support/PlateformeDeTest.h"
#include "support/SuiteDeModales.h"
#include "support/TableDeTest.h"
#include "vue/VueDesLignes.h"

#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void Cliquer(const QWidget& form, const char* nom)
{
    QTest::mouseClick(form.findChild<QPushButton*>(QString::fromLatin1(nom)), Qt::LeftButton);
}

SuiteDeModales::Etape Valider(const QString& fenetre = u"frmDragAndDrop"_s, const char* bouton = "btOK")
{
    return {fenetre, [bouton](QWidget& form) { Cliquer(form, bouton); }};
}

/// What the mapping shows, by rows.
QStringList RangsDe(const QWidget& form)
{
    const QAbstractItemModel& modele = *form.findChild<VueDesLignes*>(u"ListView1"_s)->model();
    QStringList rangs;
    for (int i = 0; i < modele.rowCount(); ++i)
        rangs.append(modele.index(i, 0).data().toString() + u'>' + modele.index(i, 1).data().toString());
    return rangs;
}

/// Presses Escape in the window that tells how far the work is, as soon as it is painted.
class AbandonAussitot : public QObject
{
public:
    AbandonAussitot() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* objet, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && objet->objectName() == u"frmAvancement" && !std::exchange(vu, true))
            QMetaObject::invokeMethod(
                objet, [objet] { QTest::keyClick(qobject_cast<QWidget*>(objet), Qt::Key_Escape); },
                Qt::QueuedConnection);
        return false;
    }
    bool vu = false;
};

/// A category with three entries of two columns, and another one into which is pasted.
class ClipBoard : public testing::Test
{
protected:
    ClipBoard()
    {
        MettreColonnes(source.table, {"Titre", "Artiste", "Genre"});
        AjouterEntrees(source.table, {{"a", "1", "x"}, {"б", "2", "y"}, {"c", "3", "z"}});
        MettreColonnes(table, {"Nom", "Auteur"});
        AjouterEntrees(table, {{"m", "9"}});
    }

    void Copier(std::initializer_list<int> positions)
    {
        Choisir(source.table, positions);
        CopierSelection(source.table, source.doc.TmpFolder);
    }
    void DonnerImage(int position, const QByteArray& contenu)
    {
        const QString nom = u"image%1.jpg"_s.arg(position);
        source.table.ListItems(position).SetTag(nom);
        source.dossier.Ecrire(nom, contenu);
    }
    void CollerAvec(std::vector<SuiteDeModales::Etape> etapes)
    {
        const SuiteDeModales suite(std::move(etapes));
        Coller(cible.doc);
    }

    DocumentDeTest source;
    DocumentDeTest cible;
    MyLV& table = cible.table;
    PressePapiersEnMemoire& pressePapiers = PlateformeDeTest::Courante().pressePapiers;
    FileDeReponses reponses;
};

} // namespace

// ---- copy

TEST_F(ClipBoard, CopyPutsTheSelectedEntriesThere)
{
    Copier({1, 2});
    EXPECT_EQ(pressePapiers.texte,
              u"[Zelvane]\r\nTitre\tArtiste\tGenre\t"_s + source.doc.TmpFolder + u"\r\na\t1\tx\t\r\nб\t2\ty\t\r\n"_s);
    EXPECT_FALSE(PlateformeDeTest::Courante().dossier.Existe(u"~qrtCopier.tmp"_s));
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(ClipBoard, WhatIsThereGoesBeforeTheTextIsMade)
{
    struct : PressePapiersEnMemoire
    {
        void Vider() override { videAvantPoser = !texte; }
        void Poser(const QString& nouveau) override { texte = nouveau; }
        bool videAvantPoser = false;
    } temoin;
    plateforme().pressePapiers = &temoin;
    Copier({1});
    plateforme().pressePapiers = &pressePapiers;
    EXPECT_TRUE(temoin.videAvantPoser);
    EXPECT_TRUE(temoin.texte);
}

TEST_F(ClipBoard, CopyWithoutASelectionSaysSoAndKeepsWhatIsThere)
{
    pressePapiers.texte = u"ancien"_s;
    Copier({});
    EXPECT_EQ(pressePapiers.texte, u"ancien"_s);
    EXPECT_EQ(reponses.Cles(), QStringList({"msg97"}));
    EXPECT_EQ(reponses.Affiches().first().message.texte, u"Rien n'a ete copié !"_s);
    EXPECT_EQ(reponses.Affiches().first().genre, MsgOk);
}

TEST_F(ClipBoard, AFolderThatCannotBeWrittenCostsNothing)
{
    plateforme().dossierProgramme = PlateformeDeTest::Courante().dossier.Fichier(u"absent/"_s);
    Copier({3});
    EXPECT_TRUE(pressePapiers.texte->endsWith(u"c\t3\tz\t\r\n"_s));
    EXPECT_EQ(reponses.Cles(), QStringList({"msgEchangeSansFichier"}));
}

// ---- paste: what is refused

TEST_F(ClipBoard, WithoutATextOfEntriesNothingIsShownAndTheFlagFalls)
{
    for (const std::optional<QString>& texte :
         {std::optional<QString>(), std::optional(u"bonjour"_s), std::optional(u"[Zelvane-TxtPRE]\r\nA\tx\r\n"_s)}) {
        pressePapiers.texte = texte;
        cible.doc.IlFautSauver = true;
        cible.doc.ChangementsTus = false;
        CollerAvec({});
        EXPECT_FALSE(cible.doc.IlFautSauver);
        EXPECT_TRUE(cible.doc.AChange()) << "the rescue copy keeps what was not saved";
    }
    EXPECT_EQ(table.ListItems.Count(), 1);
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(ClipBoard, ACancelledPasteAddsNothingAndTheFlagFalls)
{
    Copier({1});
    Choisir(table, {1});
    cible.doc.IlFautSauver = true;
    CollerAvec({Valider(u"frmDragAndDrop"_s, "btAnnuler")});
    EXPECT_EQ(table.ListItems.Count(), 1);
    EXPECT_EQ(Choisies(table), QList<int>({1})) << "the selection stays";
    EXPECT_FALSE(cible.doc.IlFautSauver);
    EXPECT_TRUE(cible.doc.AChange());
}

TEST_F(ClipBoard, ARefusedPasteLeavesASavedDocumentSaved)
{
    Coller(cible.doc);
    EXPECT_FALSE(cible.doc.AChange());
}

// ---- paste: the columns

TEST_F(ClipBoard, PasteAsksWhichColumnGoesWhere)
{
    Copier({1, 2});
    Choisir(table, {1});
    QStringList rangs;
    QString titre;
    CollerAvec({{u"frmDragAndDrop"_s, [&](QWidget& form) {
                     titre = form.windowTitle();
                     rangs = RangsDe(form);
                     Cliquer(form, "btOK");
                 }}});
    EXPECT_EQ(titre, u"Coller"_s);
    EXPECT_EQ(rangs, QStringList({"(1)Titre>(1)Nom", "(2)Artiste>(2)Auteur", "(3)Genre><perdu>"}));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"m", "a", "б"}));
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"9", "1", "2"}));
    EXPECT_EQ(Choisies(table), QList<int>({2, 3})) << "what was selected before is not any more";
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2", "k3"}));
    EXPECT_TRUE(cible.doc.IlFautSauver);
}

TEST_F(ClipBoard, FewerSourcesLeaveColumnsEmpty)
{
    pressePapiers.texte = u"[Zelvane]\r\nUn\t/d/\r\na\t\r\n"_s;
    QStringList rangs;
    CollerAvec({{u"frmDragAndDrop"_s, [&](QWidget& form) {
                     rangs = RangsDe(form);
                     Cliquer(form, "btOK");
                 }}});
    EXPECT_EQ(rangs, QStringList({"(1)Un>(1)Nom", "<vide>>(2)Auteur"}));
    EXPECT_EQ(table.ListItems(2).Valeurs(), QStringList({"a", ""}));
}

TEST_F(ClipBoard, TheUsersOrderIsFollowed)
{
    Copier({1});
    CollerAvec({{u"frmDragAndDrop"_s, [&](QWidget& form) {
                     EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
                     auto& vue = *form.findChild<VueDesLignes*>(u"ListView1"_s);
                     vue.setFocus();
                     QTest::mouseClick(vue.viewport(), Qt::LeftButton, Qt::NoModifier,
                                       vue.visualRect(vue.model()->index(2, 0)).center());
                     QTest::keyClick(&vue, Qt::Key_Up, Qt::AltModifier);
                     QTest::keyClick(&vue, Qt::Key_Up, Qt::AltModifier);
                     Cliquer(form, "btOK");
                 }}});
    EXPECT_EQ(table.ListItems(2).Valeurs(), QStringList({"x", "a"}));
}

// ---- paste: the images

TEST_F(ClipBoard, ImagesGoAlong)
{
    DonnerImage(1, "une");
    Copier({1, 2});
    CollerAvec({Valider()});
    EXPECT_EQ(table.ListItems(2).Tag(), u"image1.jpg"_s);
    EXPECT_EQ(cible.dossier.Lire(u"image1.jpg"_s), "une");
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(ClipBoard, AnImageThatIsThereIsAskedAbout)
{
    DonnerImage(1, "neuve");
    cible.dossier.Ecrire(u"image1.jpg"_s, "vieille");
    Copier({1});
    bool dejaSale = false;
    CollerAvec({Valider(), {u"frmRemplacerImg"_s, [&](QWidget& form) {
                                dejaSale = cible.doc.IlFautSauver;
                                Cliquer(form, "btOui");
                            }}});
    EXPECT_EQ(cible.dossier.Lire(u"image1.jpg"_s), "neuve");
    EXPECT_TRUE(dejaSale) << "a rescue copy made meanwhile has the entries";
}

TEST_F(ClipBoard, NoAsksForAnotherNameAndTheEntryKeepsItsOwn)
{
    DonnerImage(1, "neuve");
    cible.dossier.Ecrire(u"image1.jpg"_s, "vieille");
    Copier({1});
    reponses.Preparer(RepOui);
    CollerAvec({Valider(), Valider(u"frmRemplacerImg"_s, "btNon")});
    EXPECT_EQ(reponses.Cles(), QStringList({"msg27"}));
    EXPECT_EQ(reponses.Affiches().first().message.texte, u"Voulez vous que l'image a ajouter soit renomée?"_s);
    EXPECT_EQ(reponses.Affiches().first().genre, MsgOuiNonAnnuler);
    EXPECT_EQ(reponses.Affiches().first().titre, QString());
    EXPECT_EQ(cible.dossier.Lire(u"image1.jpg"_s), "vieille");
    EXPECT_EQ(cible.dossier.Lire(u"0image1.jpg"_s), "neuve");
    EXPECT_EQ(table.ListItems(2).Tag(), u"image1.jpg"_s);
}

TEST_F(ClipBoard, AnyOtherAnswerCopiesNothing)
{
    DonnerImage(1, "neuve");
    cible.dossier.Ecrire(u"image1.jpg"_s, "vieille");
    Copier({1});
    for (const int reponse : {RepNon, RepAnnuler}) {
        reponses.Preparer(reponse);
        CollerAvec({Valider(), Valider(u"frmRemplacerImg"_s, "btNon")});
    }
    EXPECT_EQ(cible.dossier.Lire(u"image1.jpg"_s), "vieille");
    EXPECT_FALSE(cible.dossier.Existe(u"0image1.jpg"_s));
    EXPECT_TRUE(cible.doc.IlFautSauver);
}

TEST_F(ClipBoard, PastingIntoItselfAsksForEachImage)
{
    DonnerImage(1, "une");
    DonnerImage(3, "trois");
    Copier({1, 2, 3});
    QStringList rangs;
    const SuiteDeModales suite({{u"frmDragAndDrop"_s,
                                 [&](QWidget& form) {
                                     rangs = RangsDe(form);
                                     Cliquer(form, "btOK");
                                 }},
                                Valider(u"frmRemplacerImg"_s, "btOui"),
                                Valider(u"frmRemplacerImg"_s, "btOui")});
    Coller(source.doc);
    EXPECT_EQ(rangs, QStringList({"(1)Titre>(1)Titre", "(2)Artiste>(2)Artiste", "(3)Genre>(3)Genre"}));
    EXPECT_EQ(ColonneDe(source.table, 1), QStringList({"a", "б", "c", "a", "б", "c"}));
    EXPECT_EQ(source.dossier.Lire(u"image1.jpg"_s), "une");
    EXPECT_EQ(source.dossier.Lire(u"image3.jpg"_s), "trois");
}

TEST_F(ClipBoard, ASourceThatIsGoneCostsThePicturesAlone)
{
    DonnerImage(1, "une");
    DonnerImage(2, "deux");
    Copier({1, 2});
    QDir(source.doc.TmpFolder).removeRecursively();
    CollerAvec({Valider()});
    EXPECT_EQ(reponses.Cles(), QStringList({"msgImagesNonCopiees"}));
    EXPECT_TRUE(reponses.Affiches().first().message.texte.contains(u'2'));
    EXPECT_EQ(table.ListItems.Count(), 3);
    EXPECT_EQ(table.ListItems(2).Tag(), u"image1.jpg"_s);
    EXPECT_TRUE(cible.doc.IlFautSauver);
}

// ---- the window stays alive

TEST_F(ClipBoard, ALongPasteCanBeGivenUp)
{
    QString texte = u"[Zelvane]\r\nA\t/d/\r\n"_s;
    for (int i = 0; i < 200'000; ++i)
        texte += u"a\t\r\n"_s;
    pressePapiers.texte = texte;
    const QScopedValueRollback delai(AvancementEnFenetre::DelaiUsuel, std::chrono::milliseconds(0));
    AbandonAussitot abandon;
    cible.doc.IlFautSauver = true;
    CollerAvec({Valider()});
    EXPECT_TRUE(abandon.vu);
    EXPECT_EQ(table.ListItems.Count(), 1);
    EXPECT_FALSE(cible.doc.IlFautSauver);
    EXPECT_TRUE(cible.doc.AChange());
}

TEST_F(ClipBoard, MoreEntriesThanAnyMemoryHoldsAreRefused)
{
    QString texte = u"[Zelvane]\r\nA\t/d/\r\n"_s + u"\r\n"_s.repeated(3100);
    pressePapiers.texte = texte;
    const SuiteDeModales suite({{u"frmCopieParLot"_s,
                                 [](QWidget& form) {
                                     form.findChild<QLineEdit*>(u"txtNbCopie"_s)->setText(u"32767"_s);
                                     Cliquer(form, "btCopier");
                                 }},
                                Valider()});
    CollerParLot(cible.doc);
    EXPECT_EQ(reponses.Cles(), QStringList({"msgTropDEntrees"}));
    EXPECT_EQ(table.ListItems.Count(), 1);
}

// ---- copies by lot

TEST_F(ClipBoard, FourCopiesOfTwoEntriesAreEight)
{
    DonnerImage(1, "une");
    Copier({1, 2});
    const SuiteDeModales suite({{u"frmCopieParLot"_s,
                                 [](QWidget& form) {
                                     QTest::keyClicks(form.focusWidget(), u"4"_s);
                                     QTest::keyClick(form.focusWidget(), Qt::Key_Return);
                                 }},
                                Valider()});
    CollerParLot(cible.doc);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"m", "a", "a", "a", "a", "б", "б", "б", "б"}));
    EXPECT_EQ(Choisies(table), QList<int>({2, 6}));
    EXPECT_EQ(table.ListItems(5).Tag(), u"image1.jpg"_s);
    EXPECT_TRUE(cible.doc.IlFautSauver);
}

TEST_F(ClipBoard, ALotThatIsCancelledLeavesTheFlag)
{
    Copier({1});
    cible.doc.IlFautSauver = true;
    for (const char* nombre : {"", "0"}) {
        const SuiteDeModales suite({{u"frmCopieParLot"_s, [nombre](QWidget& form) {
                                         QTest::keyClicks(form.focusWidget(), QString::fromLatin1(nombre));
                                         Cliquer(form, *nombre ? "btCopier" : "Annuler");
                                     }}});
        CollerParLot(cible.doc);
    }
    EXPECT_EQ(table.ListItems.Count(), 1);
    EXPECT_TRUE(cible.doc.IlFautSauver);
    EXPECT_FALSE(cible.doc.ChangementsTus);
}

TEST_F(ClipBoard, ANegativeNumberGivesOneCopy)
{
    Copier({1});
    const SuiteDeModales suite({{u"frmCopieParLot"_s,
                                 [](QWidget& form) {
                                     QTest::keyClicks(form.focusWidget(), u"-3"_s);
                                     Cliquer(form, "btCopier");
                                 }},
                                Valider()});
    CollerParLot(cible.doc);
    EXPECT_EQ(table.ListItems.Count(), 2);
}

TEST_F(ClipBoard, WhatIsNoNumberAddsNothingAndTheDialogStays)
{
    Copier({1});
    for (const char* faux : {"", "deux", "1,5", "32768", "1e3", "0x10", "9 9"}) {
        const SuiteDeModales suite({{u"frmCopieParLot"_s, [faux](QWidget& form) {
                                         QTest::keyClicks(form.focusWidget(), QString::fromLatin1(faux));
                                         Cliquer(form, "btCopier");
                                         EXPECT_TRUE(form.isVisible()) << faux;
                                         EXPECT_EQ(form.focusWidget()->objectName(), u"txtNbCopie"_s);
                                         Cliquer(form, "Annuler");
                                     }}});
        CollerParLot(cible.doc);
    }
    EXPECT_EQ(reponses.Cles(), QStringList(7, u"msgNombreDeCopies"_s));
    EXPECT_EQ(table.ListItems.Count(), 1);
}

TEST_F(ClipBoard, TheLotsDialogSaysWhatItAsks)
{
    const SuiteDeModales suite({{u"frmCopieParLot"_s, [](QWidget& form) {
                                     EXPECT_EQ(form.windowTitle(), u"Copies par lot"_s);
                                     EXPECT_EQ(form.findChild<QGroupBox*>(u"Frame1"_s)->title().remove(u'&'),
                                               u"Nombre de copies :"_s);
                                     const auto& champ = *form.findChild<QLineEdit*>(u"txtNbCopie"_s);
                                     EXPECT_EQ(champ.text(), QString());
                                     EXPECT_EQ(champ.accessibleName(), u"Nombre de copies :"_s);
                                     EXPECT_EQ(form.focusWidget(), &champ);
                                     const auto& copier = *form.findChild<QPushButton*>(u"btCopier"_s);
                                     EXPECT_EQ(copier.text().remove(u'&'), u"Copier"_s);
                                     EXPECT_EQ(copier.toolTip(), u"Creer la nouvelle Categorie"_s);
                                     EXPECT_TRUE(copier.isDefault());
                                     const auto& annuler = *form.findChild<QPushButton*>(u"Annuler"_s);
                                     EXPECT_EQ(annuler.text().remove(u'&'), u"Annuler"_s);
                                     EXPECT_EQ(annuler.toolTip(), u"Annuler"_s);
                                     QTest::keyClick(&form, Qt::Key_Escape);
                                 }}});
    CollerParLot(cible.doc);
}
