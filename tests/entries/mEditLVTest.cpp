#include "entries/mEditLV.h"
#include "GestesDEditeur.h"
#include "SelectionDeTest.h"

#include "base/Const_Vrac.h"
#include "entries/frmEditEntree.h"
#include "images/PanneauImage.h"
#include "support/CadreDeTest.h"
#include "support/FileDeReponses.h"
#include "support/TableDeTest.h"

#include <QApplication>
#include <QImage>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QPushButton& Bouton(const QWidget& form, const char* nom)
{
    return *form.findChild<QPushButton*>(QString::fromLatin1(nom));
}
QTreeWidget& LV(const QWidget& form)
{
    return *form.findChild<QTreeWidget*>("LV");
}
QStringList ColonneDeLV(const QWidget& form, int colonne)
{
    QStringList textes;
    for (int i = 0; i < LV(form).topLevelItemCount(); ++i)
        textes.append(LV(form).topLevelItem(i)->text(colonne));
    return textes;
}
class EditLV : public testing::Test
{
protected:
    EditLV() : m_avant(InstallerCadre(&m_cadre))
    {
        doc.TmpFolder = dossier.Chemin();
        MettreColonnes(table, {"Titre", "Artiste"});
        table.ColumnHeaders(2).SetTag("Ida|Paul");
        AjouterEntrees(table, {{"a", "1"}, {"b", "2"}, {"c", "3"}});
    }
    ~EditLV() override { InstallerCadre(m_avant); }

    void DonnerFocus(int position) { table.SetSelectedItem(table.ListItems(position)); }

    /// Runs an operation and does `geste` in the editor, which is closed afterwards where it is still open.
    bool Editer(bool multiAutorise, bool navigation, const std::function<void(QWidget&)>& geste)
    {
        const GardeModale garde([&](QWidget& form) {
            geste(form);
            form.close();
        });
        return EditerEntrees(fenetre, multiAutorise, navigation);
    }
    bool Ajouter(const std::function<void(QWidget&)>& geste)
    {
        const GardeModale garde([&](QWidget& form) {
            geste(form);
            form.close();
        });
        return AjouterEntree(fenetre);
    }

    CadreDeTest m_cadre;
    Cadre* m_avant;
    FenetreDeTest& fenetre = dynamic_cast<FenetreDeTest&>(m_cadre.NouvelleFenetre());
    Categorie& doc = fenetre.myqrt;
    MyLV& table = fenetre.table;
    DossierDeTest dossier;
    FileDeReponses reponses;
};

// ---- edit: nothing, one

TEST_F(EditLV, WithNothingSelectedNoEditorOpens)
{
    doc.IlFautSauver = true;
    EXPECT_FALSE(EditerEntrees(fenetre, true, true));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(EditLV, OneEntryIsShownAndWritten)
{
    Choisir(table, {2});
    DonnerFocus(2);
    EXPECT_TRUE(Editer(true, true, [](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), u"Editer une entrée"_s);
        EXPECT_EQ(Bouton(form, "btAjouter").text().remove(u'&'), u"Mettre à jour"_s);
        EXPECT_FALSE(Bouton(form, "btPrecedent").isHidden());
        EXPECT_FALSE(Bouton(form, "btSuivant").isHidden());
        EXPECT_EQ(ColonneDeLV(form, 0), QStringList({"Titre", "Artiste"}));
        EXPECT_EQ(ColonneDeLV(form, 1), QStringList({"b", "2"}));
        Taper(form, 1, "neuf");
        Cliquer(form, "btAjouter");
    }));
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "neuf", "c"}));
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(Choisies(table), QList<int>({2}));
    EXPECT_EQ(fenetre.ligneVisible, 2);
    EXPECT_EQ(reponses.Cles(), QStringList()) << "the warning is for many";
}

TEST_F(EditLV, ACancelledEditorLeavesTheDocumentAsItWas)
{
    Choisir(table, {2});
    DonnerFocus(2);
    for (const bool sale : {false, true}) {
        doc.IlFautSauver = sale;
        EXPECT_EQ(Editer(true, true,
                         [](QWidget& form) {
                             Taper(form, 1, "neuf");
                             Cliquer(form, "Annuler");
                         }),
                  sale);
        EXPECT_EQ(doc.IlFautSauver, sale);
    }
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "b", "c"}));
    EXPECT_EQ(Choisies(table), QList<int>({2}));
}

TEST_F(EditLV, WithoutNavigationItsButtonsAreHidden)
{
    Choisir(table, {2});
    DonnerFocus(2);
    Editer(true, false, [](QWidget& form) {
        EXPECT_TRUE(Bouton(form, "btPrecedent").isHidden());
        EXPECT_TRUE(Bouton(form, "btSuivant").isHidden());
    });
}

TEST_F(EditLV, SeveralSelectedWithoutMultiEditTheOneWithTheFocus)
{
    Choisir(table, {1, 3});
    DonnerFocus(3);
    Editer(false, true, [](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), u"Editer une entrée"_s);
        EXPECT_EQ(ColonneDeLV(form, 1), QStringList({"c", "3"}));
        Cliquer(form, "Annuler");
    });
    EXPECT_EQ(Choisies(table), QList<int>({3}));
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(EditLV, TheSelectionEndsOnTheEntryReachedLast)
{
    Choisir(table, {1, 3});
    DonnerFocus(1);
    Editer(false, true, [](QWidget& form) {
        Cliquer(form, "btSuivant");
        EXPECT_EQ(ColonneDeLV(form, 1), QStringList({"b", "2"}));
        Cliquer(form, "Annuler");
    });
    EXPECT_EQ(Choisies(table), QList<int>({2}));
    EXPECT_EQ(table.SelectedItem(), table.ListItems(2)) << "the next command acts on what is seen selected";
    EXPECT_EQ(fenetre.ligneVisible, 2);
    EXPECT_TRUE(doc.IlFautSauver) << "walking writes";
}

TEST_F(EditLV, WhatWasWrittenOnTheWayIsUnsavedWhileTheEditorIsStillOpen)
{
    Choisir(table, {1});
    DonnerFocus(1);
    Editer(true, true, [this](QWidget& form) {
        EXPECT_FALSE(doc.IlFautSauver);
        Cliquer(form, "btSuivant");
        EXPECT_TRUE(doc.IlFautSauver);
    });
}

TEST_F(EditLV, AnEntryBeyondSixteenBitsIsNotEditedAlone)
{
    for (int i = table.ListItems.Count(); i < 32768; ++i)
        table.ListItems.Add(0, QString(), "x");
    Choisir(table, {32768});
    DonnerFocus(32768);
    for (const bool sale : {false, true}) {
        doc.IlFautSauver = sale;
        EXPECT_EQ(EditerEntrees(fenetre, true, true), sale);
        EXPECT_EQ(doc.IlFautSauver, sale);
    }
    table.Selectionner(32768, 32768, false);
    Choisir(table, {32767});
    DonnerFocus(32767);
    Editer(true, true, [](QWidget& form) {
        Taper(form, 1, "neuf");
        Cliquer(form, "btAjouter");
    });
    EXPECT_EQ(table.ListItems(32767).Text(), "neuf");
}

// ---- edit: many

TEST_F(EditLV, ManyEntriesAreEditedTogetherAfterAWarning)
{
    Choisir(table, {1, 3});
    DonnerFocus(3);
    reponses.Preparer(RepOui);
    EXPECT_FALSE(Editer(true, true, [](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), u"Editer de MULTIPLES entrées"_s);
        EXPECT_EQ(Bouton(form, "btAjouter").text().remove(u'&'), u"Mettre à jour"_s);
        EXPECT_TRUE(Bouton(form, "btPrecedent").isHidden());
        EXPECT_TRUE(Bouton(form, "btSuivant").isHidden());
        EXPECT_EQ(ColonneDeLV(form, 0), QStringList({"Titre", "Artiste"}));
        EXPECT_EQ(ColonneDeLV(form, 1), QStringList({"", ""}));
        Taper(form, 2, "neuf");
        Cliquer(form, "btAjouter");
    })) << "the editor's flag, which nothing raised";
    ASSERT_EQ(reponses.Cles(), QStringList({"msg99"}));
    EXPECT_EQ(reponses.Affiches().front().genre, MsgOuiNonAnnuler);
    EXPECT_EQ(reponses.Affiches().front().titre, "");
    EXPECT_EQ(reponses.Affiches().front().message.texte,
              u"Attention, les modifications affecteront toutes les entrées sélectionnées !"_s);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "b", "c"}));
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"neuf", "2", "neuf"}));
    EXPECT_EQ(Choisies(table), QList<int>({1, 3}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(EditLV, ManyAreEditedWithNoImageInTheZoneAndEachKeepsItsOwn)
{
    EcrireOption("MessageEditMulti", 0);
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    for (const int position : {1, 3}) {
        const QString nom = u"%1.bmp"_s.arg(position);
        ASSERT_TRUE(image.save(dossier.Fichier(nom)));
        table.ListItems(position).SetTag(nom);
    }
    Choisir(table, {1, 3});
    DonnerFocus(3);
    Editer(true, true, [](QWidget& form) {
        EXPECT_TRUE(form.findChild<PanneauImage*>("Img")->Image().isNull());
        EXPECT_EQ(dynamic_cast<frmEditEntree&>(form).ImgTag(), "");
        Taper(form, 2, "neuf");
        Cliquer(form, "btAjouter");
    });
    EXPECT_EQ(ColonneDe(table, 2), QStringList({"neuf", "2", "neuf"}));
    EXPECT_EQ(table.ListItems(1).Tag(), "1.bmp");
    EXPECT_EQ(table.ListItems(3).Tag(), "3.bmp");
}

TEST_F(EditLV, AnyOtherAnswerThanYesEditsNothing)
{
    Choisir(table, {1, 2});
    for (const int reponse : {int(RepNon), int(RepAnnuler)}) {
        reponses.Preparer(reponse);
        doc.IlFautSauver = true;
        EXPECT_FALSE(EditerEntrees(fenetre, true, true));
        EXPECT_TRUE(doc.IlFautSauver);
    }
    EXPECT_EQ(Choisies(table), QList<int>({1, 2}));
}

TEST_F(EditLV, TheWarningIsShownForTheSettingOneOnly)
{
    Choisir(table, {1, 2});
    for (const char* valeur : {"0", "2", "oui"}) {
        EcrireOption("MessageEditMulti", valeur);
        Choisir(table, {1, 2});
        Editer(true, true, [](QWidget& form) { EXPECT_EQ(form.windowTitle(), u"Editer de MULTIPLES entrées"_s); });
    }
    EXPECT_EQ(reponses.Cles(), QStringList());
}

TEST_F(EditLV, ManyWithNothingTypedStillCountAsChanged)
{
    EcrireOption("MessageEditMulti", 0);
    Choisir(table, {1, 2});
    Editer(true, true, [](QWidget& form) { Cliquer(form, "btAjouter"); });
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "b", "c"}));
    EXPECT_EQ(Choisies(table), QList<int>({1, 2}));
    EXPECT_TRUE(doc.IlFautSauver);
    EXPECT_EQ(table.ColumnHeaders(2).Tag(), "Ida|Paul") << "its texts came from the editor's rows";
}

TEST_F(EditLV, ACancelledEditOfManyLeavesTheFocusSelectedAlone)
{
    EcrireOption("MessageEditMulti", 0);
    Choisir(table, {1, 2});
    DonnerFocus(2);
    Editer(true, true, [](QWidget& form) {
        Taper(form, 1, "neuf");
        Cliquer(form, "Annuler");
    });
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"a", "b", "c"}));
    EXPECT_EQ(Choisies(table), QList<int>({2}));
    EXPECT_EQ(fenetre.ligneVisible, 2);
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditLV, ManyCanBeEditedBeyondSixteenBits)
{
    EcrireOption("MessageEditMulti", 0);
    while (table.ListItems.Count() < 40'000)
        table.ListItems.Add(0, QString(), "x");
    table.Selectionner(1, 40'000, true);
    DonnerFocus(40'000);
    Editer(true, true, [](QWidget& form) {
        Taper(form, 1, "neuf");
        Cliquer(form, "btAjouter");
    });
    EXPECT_EQ(table.ListItems(1).Text(), "neuf");
    EXPECT_EQ(table.ListItems(40'000).Text(), "neuf");
    Editer(true, true, [](QWidget& form) { Cliquer(form, "Annuler"); });
    EXPECT_EQ(Choisies(table), QList<int>({40'000}));
}

// ---- add

TEST_F(EditLV, AnEntryIsTypedAndAdded)
{
    EXPECT_TRUE(Ajouter([](QWidget& form) {
        EXPECT_EQ(form.windowTitle(), u"Ajouter une entrée"_s);
        EXPECT_EQ(Bouton(form, "btAjouter").text().remove(u'&'), "Ajouter");
        EXPECT_TRUE(Bouton(form, "btPrecedent").isHidden());
        EXPECT_TRUE(Bouton(form, "btSuivant").isHidden());
        EXPECT_EQ(ColonneDeLV(form, 0), QStringList({"Titre", "Artiste"}));
        EXPECT_EQ(ColonneDeLV(form, 1), QStringList({"", ""}));
        Taper(form, 1, "d");
        Taper(form, 2, "4");
        Cliquer(form, "btAjouter");
    }));
    EXPECT_EQ(table.ListItems(4).Valeurs(), QStringList({"d", "4"}));
    EXPECT_EQ(Choisies(table), QList<int>({4}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(EditLV, ACancelledAddLeavesEverythingAsItWas)
{
    EXPECT_FALSE(Ajouter([](QWidget& form) {
        Taper(form, 2, "Nina");
        QTest::mouseClick(form.findChild<QWidget*>("btplus"), Qt::LeftButton);
        Cliquer(form, "Annuler");
    }));
    EXPECT_EQ(table.ListItems.Count(), 3);
    EXPECT_EQ(table.ColumnHeaders(2).Tag(), "Ida|Paul") << "what was added to the texts is dropped";
    EXPECT_FALSE(doc.IlFautSauver);
}

TEST_F(EditLV, TextsMemorisedWhileAddingReachTheColumn)
{
    Ajouter([](QWidget& form) {
        Taper(form, 2, "Nina");
        QTest::mouseClick(form.findChild<QWidget*>("btplus"), Qt::LeftButton);
        Cliquer(form, "btAjouter");
    });
    EXPECT_EQ(table.ColumnHeaders(2).Tag(), "Ida|Paul|Nina");
}

TEST_F(EditLV, AnEntryWithoutAnyTextIsAskedForAgain)
{
    const auto garde = std::make_unique<GardeModale>([](QWidget& form) {
        // The same form comes back: it is answered once this click has returned.
        QTimer::singleShot(50, &form, [&form] {
            EXPECT_TRUE(form.isVisible());
            Taper(form, 1, "d");
            Cliquer(form, "btAjouter");
        });
        Cliquer(form, "btAjouter");
    });
    EXPECT_TRUE(AjouterEntree(fenetre));
    ASSERT_EQ(reponses.Cles(), QStringList({"msg65"}));
    EXPECT_EQ(reponses.Affiches().front().genre, MsgOk);
    EXPECT_EQ(reponses.Affiches().front().message.texte,
              "Tous les champs sont vides. Veuillez rentrer au moins une information");
    EXPECT_EQ(table.ListItems(4).Text(), "d");
}

TEST_F(EditLV, AnImageAloneMakesNoEntryAndIsKeptInTheEditor)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(dossier.Fichier("a.bmp")));
    const auto garde = std::make_unique<GardeModale>([](QWidget& form) {
        ChoisirPremiereImage(form);
        QTimer::singleShot(50, &form, [&form] {
            Taper(form, 1, "d");
            Cliquer(form, "btAjouter");
        });
        Cliquer(form, "btAjouter");
    });
    EXPECT_TRUE(AjouterEntree(fenetre));
    EXPECT_EQ(reponses.Cles(), QStringList({"msg65"}));
    EXPECT_EQ(table.ListItems(4).Tag(), "a.bmp");
    EXPECT_EQ(table.ListItems(4).SmallIcon(), "ico");
    EXPECT_EQ(fenetre.image, dossier.Fichier("a.bmp"));
}

TEST_F(EditLV, AfterTheMessageTheAddMayStillBeCancelled)
{
    const auto garde = std::make_unique<GardeModale>([](QWidget& form) {
        QTimer::singleShot(50, &form, [&form] { Cliquer(form, "Annuler"); });
        Cliquer(form, "btAjouter");
    });
    EXPECT_FALSE(AjouterEntree(fenetre));
    EXPECT_EQ(table.ListItems.Count(), 3);
}

// ---- delete

TEST_F(EditLV, DeletedEntriesAreGoneAndKeysRenumbered)
{
    Choisir(table, {1});
    const GardeModale garde([](QWidget& form) { Cliquer(form, "btAjouter"); });
    SupprimerEntrees(fenetre);
    EXPECT_EQ(ColonneDe(table, 1), QStringList({"b", "c"}));
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2"}));
    EXPECT_TRUE(doc.IlFautSauver);
}

TEST_F(EditLV, LeavingTheDeletionForgetsUnsavedChangesAndRenumbersAllTheSame)
{
    table.ListItems.Remove(1);
    doc.IlFautSauver = true;
    const GardeModale garde([](QWidget& form) { Cliquer(form, "Annuler"); });
    SupprimerEntrees(fenetre);
    EXPECT_FALSE(doc.IlFautSauver);
    EXPECT_EQ(ClesDe(table), QStringList({"k1", "k2"}));
}

TEST_F(EditLV, DeletingWithAnEmptySelectionCountsAsAChange)
{
    const GardeModale garde([](QWidget& form) { Cliquer(form, "btAjouter"); });
    SupprimerEntrees(fenetre);
    EXPECT_EQ(table.ListItems.Count(), 3);
    EXPECT_TRUE(doc.IlFautSauver);
}

// ---- look at

TEST_F(EditLV, AnEntryIsShownLargeAtItsPosition)
{
    const GardeModale garde([](QWidget& form) {
        EXPECT_EQ(form.objectName(), "frmView");
        EXPECT_EQ(form.windowTitle(), "(2 / 3)");
        form.close();
    });
    VoirEntree(table, 2, doc.TmpFolder);
}

TEST_F(EditLV, APositionOutsideTheTableShowsNothing)
{
    VoirEntree(table, 0, doc.TmpFolder);
    VoirEntree(table, -1, doc.TmpFolder);
    VoirEntree(table, 4, doc.TmpFolder);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

} // namespace
