// The editor on a category of three columns and three entries, for the tests that work in it with keys and clicks.
#pragma once

#include "catalogue/texte/Categorie.h"
#include "entries/ChampDEntree.h"
#include "entries/ZoneImage.h"
#include "entries/frmEditEntree.h"
#include "support/FileDeReponses.h"
#include "support/PlateformeDeTest.h"
#include "support/TableDeTest.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <gtest/gtest.h>

class EditeurDeTest : public testing::Test
{
protected:
    void SetUp() override
    {
        MettreColonnes(doc.table, {"Titre", "Artiste", "Genre"});
        doc.table.ColumnHeaders(3).SetTag("rock|jazz|blues");
        AjouterEntrees(doc.table, {{"Dummy", "Portishead", "trip-hop"},
                                   {"Blue", "Joni Mitchell", "folk"},
                                   {"Kind of Blue", "Miles Davis", "jazz"}});
        PlateformeDeTest::Courante().horloge.heure = QDateTime(QDate(2026, 3, 5), QTime(9, 7));
        form.Table = &doc.table;
        form.CheminImages = doc.doc.TmpFolder;
        form.RendreVisible = [this](int ligne) { visible = ligne; };
        form.DemanderImage = [](const QString&, const QString&) {
            ADD_FAILURE() << "no image was to be asked for";
            return QString();
        };
    }

    /// Shows the editor on one entry, as its caller does.
    void Editer(int index)
    {
        doc.table.ListItems(index).SetSelected(true);
        form.IndexEntree = frmEditEntree::IndexPour(index);
        form.ChargerEntree();
        Montrer();
    }
    /// Shows it for a new entry.
    void AjouterUne()
    {
        form.Charge = true;
        form.CacherNavigation();
        form.RemplirColonnes();
        Montrer();
    }
    void Montrer()
    {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    template<class Controle> Controle& Le(const char* nom)
    {
        return *form.findChild<Controle*>(QString::fromLatin1(nom));
    }
    QTreeWidget& LV() { return Le<QTreeWidget>("LV"); }
    ChampDEntree& Combo1() { return Le<ChampDEntree>("Combo1"); }
    ZoneImage& Img() { return Le<ZoneImage>("Img"); }

    /// Keys go to the control with the focus.
    void Taper(const QString& texte) { QTest::keyClicks(qApp->focusWidget(), texte); }
    void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier)
    {
        QTest::keyClick(qApp->focusWidget(), touche, avec);
    }
    void Cliquer(const char* bouton)
    {
        QTest::mouseClick(form.findChild<QAbstractButton*>(QString::fromLatin1(bouton)), Qt::LeftButton);
    }
    /// Clicks the row `ligne`, from 1.
    void CliquerLigne(int ligne)
    {
        const QRect place = LV().visualItemRect(LV().topLevelItem(ligne - 1));
        QTest::mouseClick(LV().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    }

    /// The selected row, from 1; 0 for none.
    int Ligne()
    {
        const QList<QTreeWidgetItem*> choisies = LV().selectedItems();
        return choisies.isEmpty() ? 0 : LV().indexOfTopLevelItem(choisies.at(0)) + 1;
    }
    QStringList Entree(int index) const { return doc.table.ListItems(index).Valeurs(); }
    QString FocusSur() const { return qApp->focusWidget() ? qApp->focusWidget()->objectName() : QString(); }
    int Caret() { return Combo1().lineEdit()->cursorPosition(); }

    void EcrireImage(const QString& nom, const QColor& couleur)
    {
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(couleur);
        ASSERT_TRUE(image.save(doc.dossier.Fichier(nom)));
    }
    /// The colour of the picture in the image zone; an invalid one when it shows none.
    QColor Couleur() { return Img().Image().isNull() ? QColor() : Img().Image().toImage().pixelColor(5, 5); }

    DocumentDeTest doc;
    FileDeReponses messages;
    frmEditEntree form;
    int visible = 0;
};
