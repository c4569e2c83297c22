// Entries dragged from a document, and texts dropped on one.
#include "CadreEnFenetre.h"

#include "entries/frmDragAndDrop.h"
#include "kit/frmAvancement.h"
#include "platform/Retenue.h"
#include "support/GardeModale.h"
#include "support/Glissement.h"

#include <QChildEvent>
#include <QDialog>
#include <QDrag>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString s_texte = u"[Zelvane]\r\nNom\tPrix\t/tmp/cat7/\r\nAja\t9\t\r\nBlue\t7\tblue.jpg\r\n"_s;

/// Sees the drags of the frame. The offscreen platform has none of its own: each ends at once, and is looked at before
/// it goes with the other objects of the moment.
class VoitTirages : public QObject
{
public:
    VoitTirages(QObject& cadre, std::function<void(QDrag&)> regarder) : m_regarder(std::move(regarder))
    {
        cadre.installEventFilter(this);
    }
    std::function<void()> commencer = [] {};
    int tirages = 0;

protected:
    bool eventFilter(QObject* objet, QEvent* event) override
    {
        if (event->type() == QEvent::ChildAdded) {
            commencer();
            static_cast<QChildEvent*>(event)->child()->installEventFilter(this);
        } else if (auto* tirage = qobject_cast<QDrag*>(objet); tirage && event->type() == QEvent::DeferredDelete) {
            ++tirages;
            m_regarder(*tirage);
        }
        return false;
    }

private:
    std::function<void(QDrag&)> m_regarder;
};

class Form1Glisser : public CadreEnFenetre
{
protected:
    void SetUp() override { Montrer(); }

    static QPoint Milieu(const Form1& fenetre, int ligne)
    {
        return fenetre.ListView1().visualRect(fenetre.ListView1().model()->index(ligne - 1, 0)).center();
    }
    /// Drops a text, and does `geste` in the dialog that it opens.
    void Deposer(Form1& fenetre, const QString& texte, const std::function<void(QWidget&)>& geste)
    {
        const GardeModale garde(geste);
        Glissement glissement(texte);
        EXPECT_TRUE(glissement.Deposer(*fenetre.ListView1().viewport(), Milieu(fenetre, 1)));
        Laisser();
    }
    /// The same where no dialog comes.
    void DeposerEnVain(Form1& fenetre, const QString& texte)
    {
        Glissement glissement(texte);
        EXPECT_TRUE(glissement.Deposer(*fenetre.ListView1().viewport(), Milieu(fenetre, 1)));
        Laisser();
        EXPECT_FALSE(QApplication::activeModalWidget());
    }
    static void Cliquer(const QWidget& form, const char* nom)
    {
        QTest::mouseClick(form.findChild<QPushButton*>(QString::fromLatin1(nom)), Qt::LeftButton);
    }
    static void Valider(QWidget& form) { Cliquer(form, "btOK"); }
    static QStringList Titres(const Form1& fenetre) { return ColonneDe(*fenetre.myqrt.MyLV, 1); }
    static QString Compte(const Form1& fenetre, int panneau)
    {
        return fenetre.findChild<QLabel*>(u"StatusBar1_%1"_s.arg(panneau))->text();
    }

    /// Presses an entry that is selected and moves off; how many drags came of it.
    int Tirer(
        Form1& fenetre, int ligne, const std::function<void(QDrag&)>& regarder = [](QDrag&) {})
    {
        VoitTirages vus(*cadre, regarder);
        vus.commencer = [&] { m_marque = fenetre.ListView1().Tag; };
        QWindow* fond = cadre->windowHandle();
        const QPoint ici = fenetre.ListView1().viewport()->mapTo(cadre.get(), Milieu(fenetre, ligne));
        QTest::mousePress(fond, Qt::LeftButton, {}, ici);
        QTest::mouseMove(fond, ici + QPoint(2 * QApplication::startDragDistance(), 0));
        Laisser();
        QTest::mouseRelease(fond, Qt::LeftButton, {}, ici);
        return vus.tirages;
    }

    QString m_marque; ///< Tag of the view when the drag was made
};

} // namespace

// ---- dropping

TEST_F(Form1Glisser, ADropAsksForTheColumnsAndAddsTheEntries)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    Ouvrir(u"b.qrt"_s);
    a.myqrt.MyLV->Selectionner(1, 1, true);
    QString titre;
    Deposer(a, s_texte, [&](QWidget& form) {
        titre = form.windowTitle();
        EXPECT_EQ(dynamic_cast<frmDragAndDrop&>(form).Rangs().departs,
                  QStringList({"(1)Nom", "(2)Prix", "(3)/tmp/cat7/"}));
        Valider(form);
    });
    EXPECT_EQ(titre, u"Glisser-déposer"_s);
    EXPECT_EQ(Titres(a), QStringList({"Abbey Road", "Aja", "Blue"}));
    EXPECT_EQ(ColonneDe(*a.myqrt.MyLV, 2), QStringList({"", "9", "7"}));
    EXPECT_TRUE(a.myqrt.IlFautSauver);
    EXPECT_EQ(Compte(a, 1), "3 entrée(s)");
    EXPECT_EQ(Compte(a, 2), u"3 selectionnée(s)"_s);
    EXPECT_EQ(cadre->FenetreActive(), &a) << "it is brought to the front";
    a.myqrt.IlFautSauver = false;
}

TEST_F(Form1Glisser, CancellingAddsNothing)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    const Form1& b = Ouvrir(u"b.qrt"_s);
    Deposer(a, s_texte, [](QWidget& form) { Cliquer(form, "btAnnuler"); });
    EXPECT_EQ(Titres(a), QStringList({"Abbey Road"}));
    EXPECT_FALSE(a.myqrt.IlFautSauver);
    EXPECT_EQ(cadre->FenetreActive(), &b);
}

TEST_F(Form1Glisser, ATextWithoutASecondLineDoesNothing)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    for (const QString& texte : {u"a"_s, u""_s, u"a\nb\nc"_s})
        DeposerEnVain(a, texte);
    EXPECT_EQ(Titres(a), QStringList({"Abbey Road"}));
    EXPECT_FALSE(a.myqrt.IlFautSauver);
}

TEST_F(Form1Glisser, WhileAFileIsReplacedADropWaits)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    {
        const Retenue retenue;
        DeposerEnVain(a, s_texte);
        EXPECT_EQ(Titres(a), QStringList({"Abbey Road"}));
    }
    const GardeModale garde([](QWidget& form) { Valider(form); });
    Laisser();
    EXPECT_EQ(Titres(a), QStringList({"Abbey Road", "Aja", "Blue"}));
    a.myqrt.IlFautSauver = false;
}

TEST_F(Form1Glisser, ADialogThatOpenedInBetweenGoesFirst)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    Glissement glissement(s_texte);
    EXPECT_TRUE(glissement.Deposer(*a.ListView1().viewport(), Milieu(a, 1)));
    QDialog autre;
    autre.setModal(true);
    autre.show();
    Laisser();
    EXPECT_EQ(QApplication::activeModalWidget(), &autre);
    autre.close();
    Laisser();
    EXPECT_FALSE(QApplication::activeModalWidget());
    EXPECT_EQ(Titres(a), QStringList({"Abbey Road"}));
}

TEST_F(Form1Glisser, TheWindowMayGoWhileTheDialogIsOpen)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    Deposer(a, s_texte, [&a](QWidget& form) {
        a.Decharger();
        Laisser();
        Valider(form);
    });
    EXPECT_TRUE(cadre->Documents().empty());
}

TEST_F(Form1Glisser, WhileManyEntriesAreAddedNothingElseCanStart)
{
    const QScopedValueRollback delai(AvancementEnFenetre::DelaiUsuel, std::chrono::milliseconds(0));
    Form1& a = Ouvrir(u"a.qrt"_s);
    bool vu = false;
    QTimer veille;
    QObject::connect(&veille, &QTimer::timeout, &veille, [&] {
        const QWidget* fenetre = QApplication::activeModalWidget();
        if (!fenetre || fenetre->objectName() != "frmAvancement")
            return;
        vu = true;
        EXPECT_TRUE(Retenue::EnCours());
    });
    veille.start(0);
    Deposer(a, u"x\r\nNom\r\n"_s + u"Aja\r\n"_s.repeated(3000), Valider);
    EXPECT_TRUE(vu) << "the progress is shown";
    EXPECT_EQ(a.myqrt.ItemsCount(), 3001);
    a.myqrt.IlFautSauver = false;
}

// ---- dragging

TEST_F(Form1Glisser, ADragCarriesTheSelectedEntriesAsAText)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    AjouterEntrees(*a.myqrt.MyLV, {{"Dummy", "x"}, {"Takk", ""}});
    a.myqrt.MyLV->Selectionner(1, 2, true);
    Laisser();
    EXPECT_EQ(Tirer(a, 2,
                    [&](const QDrag& tirage) {
                        const QMimeData& donnees = *tirage.mimeData();
                        EXPECT_EQ(donnees.formats(), QStringList("text/plain"));
                        EXPECT_TRUE(donnees.hasText());
                        EXPECT_EQ(donnees.text(), u"[Zelvane]\r\nTitre\tPrêté\t"_s + a.myqrt.TmpFolder +
                                                      u"\r\nAbbey Road\t\t\r\nDummy\tx\t\r\n"_s);
                        EXPECT_EQ(donnees.data("image/png"), "");
                        EXPECT_EQ(tirage.supportedActions(), Qt::CopyAction);
                        EXPECT_LT(tirage.hotSpot().x(), 0) << "the picture stands beside the pointer";
                    }),
              1);
    EXPECT_EQ(m_marque, "SourceDrag");
    EXPECT_EQ(a.ListView1().Tag, "") << "emptied, whatever came of it";
    EXPECT_TRUE(a.myqrt.TmpFolder.endsWith(u'/'));
    EXPECT_FALSE(a.myqrt.IlFautSauver);
}

TEST_F(Form1Glisser, ThePictureTellsHowManyEntriesItCarries)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    AjouterEntrees(*a.myqrt.MyLV, {{"Dummy", "x"}, {"Takk", ""}});
    const auto largeur = [&a](const QString& texte) { return a.ListView1().fontMetrics().horizontalAdvance(texte); };
    for (const int entrees : {1, 3}) {
        a.myqrt.MyLV->Selectionner(1, entrees, true);
        Laisser();
        EXPECT_EQ(Tirer(a, 1,
                        [&](const QDrag& tirage) {
                            const QSizeF taille = tirage.pixmap().deviceIndependentSize();
                            EXPECT_GE(taille.width(), largeur(entrees == 1 ? u"1 entrée"_s : u"3 entrées"_s));
                            EXPECT_GE(taille.height(), a.ListView1().fontMetrics().height());
                            if (const QByteArray images = qgetenv("GLISSER_IMAGES"); !images.isEmpty())
                                tirage.pixmap().save(
                                    u"%1/tirage-%2.png"_s.arg(QString::fromLocal8Bit(images)).arg(entrees));
                        }),
                  1);
    }
}

TEST_F(Form1Glisser, WhatIsDraggedIsNothingOnceItsWindowIsClosed)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.MyLV->Selectionner(1, 1, true);
    Laisser();
    EXPECT_EQ(Tirer(a, 1,
                    [&](const QDrag& tirage) {
                        QWidget* autour = a.parentWidget();
                        a.Decharger();
                        delete autour;
                        EXPECT_EQ(tirage.mimeData()->text(), "");
                    }),
              1);
    EXPECT_TRUE(cadre->Documents().empty());
}

TEST_F(Form1Glisser, WhileAFileIsReplacedNothingIsDragged)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.MyLV->Selectionner(1, 1, true);
    Laisser();
    {
        const Retenue retenue;
        EXPECT_EQ(Tirer(a, 1), 0);
    }
    EXPECT_EQ(Tirer(a, 1), 1);
}

TEST_F(Form1Glisser, ADragBeginsOnlyWhileTheButtonIsHeld)
{
    Form1& a = Ouvrir(u"a.qrt"_s);
    a.myqrt.MyLV->Selectionner(1, 1, true);
    VoitTirages vus(*cadre, [](QDrag&) {});
    emit a.ListView1().LignesEmportees();
    Laisser();
    EXPECT_EQ(vus.tirages, 0);
}
