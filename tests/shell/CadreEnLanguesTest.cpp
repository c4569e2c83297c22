// The frame with a document, its menus and bars, in every language: all is read, and no letter is underlined twice.
#include "extensions/langue/modLang.h"
#include "kit/DialoguesEnFenetre.h"
#include "shell/CadreEnFenetre.h"
#include "shell/ImagesDeFormes.h"
#include "shell/LangueInventee.h"
#include "shell/PanneauDAccueil.h"
#include "shell/frmPopup.h"
#include "support/GardeModale.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

/// A narrow screen, less what a window manager takes.
constexpr int LargeurDEcran = 1024 - 16;

QString Lettre(const QString& texte)
{
    const qsizetype place = QString(texte).replace(u"&&"_s, u"  "_s).indexOf(u'&');
    return place < 0 ? QString() : texte.mid(place + 1, 1).toLower();
}

/// Letters that two items on show have.
QStringList LettresDoubles(const QString& nom, const QList<QAction*>& items)
{
    QStringList doubles;
    QHash<QString, QString> premiers;
    for (const QAction* item : items) {
        const QString lettre = Lettre(item->text());
        if (!item->isVisible() || lettre.isEmpty())
            continue;
        if (premiers.contains(lettre))
            doubles.append(u"%1: \"%2\" and \"%3\""_s.arg(nom, premiers[lettre], item->text()));
        premiers.insert(lettre, item->text());
    }
    return doubles;
}

class CadreEnLangues : public CadreEnFenetre
{
protected:
    CadreEnLangues() { AssombrirSIlLeFaut(); }
    ~CadreEnLangues() override
    {
        cadre.reset();
        FichierLangue.clear();
        QApplication::setFont(m_police);
    }

    /// Opens the frame in each language, French first, and looks at it. The setting names a file that is not there, so
    /// that the language in force stays.
    void Regarder(const std::function<void()>& voir)
    {
        const QDir langues(QStringLiteral(ZELVANE_LANGUES));
        for (const QString& langue : QStringList(QString()) + langues.entryList({u"*.ini"_s}, QDir::Files)) {
            FichierLangue = langue.isEmpty() ? QString() : langues.filePath(langue);
            SCOPED_TRACE(langue.toStdString());
            m_langue = langue.section(u'.', 0, 0);
            voir();
            cadre.reset();
        }
    }
    /// Those of the bars, and the ones that pop up; Qt's own have no name.
    QList<QMenu*> Menus() const
    {
        EXPECT_NE(cadre->findChild<frmPopup*>(), nullptr);
        QList<QMenu*> menus = cadre->findChildren<QMenu*>();
        menus.removeIf([](const QMenu* menu) { return menu->objectName().isEmpty(); });
        return menus;
    }

    QStringList LettresDoublesDuCadre() const
    {
        QStringList doubles = LettresDoubles(u"bar"_s, cadre->menuBar()->actions());
        for (const QMenu* menu : Menus())
            doubles += LettresDoubles(menu->objectName(), menu->actions());
        return doubles;
    }
    /// Whether the bar has no room for all of its menus.
    bool BarreCoupee() const
    {
        const auto* suite = cadre->menuBar()->findChild<QWidget*>(u"qt_menubar_ext_button"_s);
        return suite && suite->isVisible();
    }
    static void MettrePolice(int points)
    {
        QFont police = QApplication::font();
        police.setPointSize(points);
        QApplication::setFont(police);
        Laisser();
    }

    const QString& EnCours() const { return m_langue; }
    void GarderImages(int points)
    {
        const QString fin = m_langue + u"-%1"_s.arg(points);
        GarderImage(*cadre, u"MDIForm1"_s + fin);
        for (QMenu* menu : Menus()) {
            const QString ou = menu->parent() == cadre.get() ? u"cadre"_s : u"menu"_s;
            GarderImage(*menu, ou + u'-' + menu->objectName() + fin);
        }
    }

private:
    QString m_langue;
    QFont m_police = QApplication::font();
};

} // namespace

TEST_F(CadreEnLangues, NoLetterIsUnderlinedTwiceInAMenuOrInTheBar)
{
    Regarder([this] {
        Montrer();
        EXPECT_EQ(LettresDoublesDuCadre(), QStringList());
        Ouvrir(u"a.qrt"_s);
        Ouvrir(u"b.qrt"_s);
        EXPECT_EQ(LettresDoublesDuCadre(), QStringList());
    });
}

TEST_F(CadreEnLangues, TheMenusAndCountsHaveRoomOnASmallScreen)
{
    Regarder([this] {
        Montrer();
        const Form1& document = Ouvrir(u"a.qrt"_s);
        document.findChild<QMenu*>(u"mPlugin"_s)->menuAction()->setVisible(true);
        cadre->resize(LargeurDEcran, cadre->height());
        for (const int points : {9, 13, 18}) {
            MettrePolice(points);
            GarderImages(points);
            // With the largest letters an arrow at the end of the bar leads to the last menus.
            EXPECT_FALSE(BarreCoupee() && points < 18) << points;
            for (const QString& nom : {u"1"_s, u"2"_s, u"Tri"_s, u"Place"_s}) {
                const auto* compte = document.findChild<QLabel*>(u"StatusBar1_"_s + nom);
                if (compte->isHidden())
                    continue;
                EXPECT_LE(compte->sizeHint().width(), compte->width()) << points << ' ' << compte->text().toStdString();
            }
        }
    });
}

TEST_F(CadreEnLangues, EachItemHintAndNameHasATranslation)
{
    EcrireLangueInventee();
    EcrireOption(Options::QRTLangue, u"inventee"_s);
    Montrer();
    QStringList donnees{u"a.qrt"_s, u"Titre"_s, u"Titre A\u2192Z"_s, u"Prêté"_s, dossier.Fichier(u"a.qrt"_s)};
    for (const QString& exemple : ExemplesInstalles())
        donnees += {exemple, QFileInfo(exemple).completeBaseName()};
    for (const bool ouvert : {false, true}) {
        if (ouvert)
            Ouvrir(u"a.qrt"_s);
        EXPECT_EQ(SansTraduction(*cadre, donnees), QStringList());
        for (const QMenu* menu : Menus())
            EXPECT_EQ(SansTraduction(*menu, donnees), QStringList());
    }
}

TEST_F(CadreEnLangues, TheDialogForFilesIsInTheLanguage)
{
    const QHash<QString, QString> annuler{{QString(), u"Annuler"_s},
                                          {u"deutsch"_s, u"Abbrechen"_s},
                                          {u"english"_s, u"Cancel"_s},
                                          {u"espanol"_s, u"Cancelar"_s}};
    Regarder([&] {
        Montrer();
        const DialoguesEnFenetre enFenetre;
        QString lu;
        const GardeModale garde([&](QWidget& form) {
            Laisser();
            GarderImage(form, u"QFileDialog%1-9"_s.arg(EnCours()));
            lu = form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->text().remove(u'&');
            form.close();
        });
        Menu(u"mOuvrir"_s).trigger();
        Laisser();
        EXPECT_EQ(lu, annuler.value(EnCours()));
    });
}
