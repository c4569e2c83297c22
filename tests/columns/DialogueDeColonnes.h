// A dialog on the columns of a document, by what a user does with it.
#pragma once

#include "DocumentAColonnes.h"
#include "support/Accessibilite.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <memory>

/// Notes whether a control was on show, be it for a moment.
class Guetteur : public QObject
{
public:
    explicit Guetteur(QWidget& controle) : QObject(&controle) { controle.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        montre = montre || event->type() == QEvent::Show;
        return false;
    }
    bool montre = false;
};

template<class Forme> class DialogueDeColonnes : public DocumentAColonnes
{
protected:
    void Ouvrir()
    {
        form = std::make_unique<Forme>(doc);
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        barre = new Guetteur(PB());
    }

    template<class Controle> Controle& Trouver(const char* nom) const
    {
        return *form->template findChild<Controle*>(QString::fromLatin1(nom));
    }
    QAbstractButton& Bouton(const char* nom) const { return Trouver<QAbstractButton>(nom); }
    QLineEdit& Champ(const char* nom) const { return Trouver<QLineEdit>(nom); }
    QComboBox& Liste(const char* nom) const { return Trouver<QComboBox>(nom); }
    QProgressBar& PB() const { return Trouver<QProgressBar>("PB"); }
    QStringList Lignes(const char* nom) const
    {
        QStringList lignes;
        for (int i = 0; i < Liste(nom).count(); ++i)
            lignes.append(Liste(nom).itemText(i));
        return lignes;
    }

    void Cliquer(const char* nom) const { QTest::mouseClick(&Bouton(nom), Qt::LeftButton); }
    /// Letters with accents too, which keyClicks does not know.
    static void TaperDans(QLineEdit& champ, const QString& texte)
    {
        QTest::mouseClick(&champ, Qt::LeftButton);
        champ.selectAll();
        QTest::keyClick(&champ, Qt::Key_Delete);
        for (const QChar lettre : texte)
            QTest::sendKeyEvent(QTest::Click, &champ, Qt::Key_unknown, QString(lettre), Qt::NoModifier);
    }
    void Taper(const char* champ, const QString& texte) const { TaperDans(Champ(champ), texte); }
    void TaperEnListe(const char* liste, const QString& texte) const { TaperDans(*Liste(liste).lineEdit(), texte); }
    /// Takes a line, from 0, with the keys.
    void Choisir(const char* liste, int position) const
    {
        Liste(liste).setFocus();
        while (Liste(liste).currentIndex() > 0)
            QTest::keyClick(&Liste(liste), Qt::Key_Up);
        if (Liste(liste).currentIndex() < 0)
            QTest::keyClick(&Liste(liste), Qt::Key_Down);
        for (int i = 0; i < position; ++i)
            QTest::keyClick(&Liste(liste), Qt::Key_Down);
    }
    QString ParDefaut() const
    {
        for (const QPushButton* bouton : form->template findChildren<QPushButton*>()) {
            if (bouton->isDefault())
                return bouton->objectName();
        }
        return {};
    }
    /// The caption of the label that leads to the control.
    QString Etiquette(const char* nom) const
    {
        for (const QLabel* etiquette : form->template findChildren<QLabel*>()) {
            if (etiquette->buddy() && etiquette->buddy()->objectName() == QLatin1String(nom))
                return etiquette->text().remove('&');
        }
        return {};
    }
    static bool MemeImage(const QAbstractButton& bouton, const QIcon& icone)
    {
        return bouton.icon().pixmap(16).toImage() == icone.pixmap(16).toImage();
    }
    /// So many entries that work on them is told of in the middle.
    void AjouterDesMilliers(int combien = 3000)
    {
        QList<QByteArray> lignes;
        for (int i = 0; i < combien; ++i)
            lignes.append("a" + QByteArray::number(i) + "|b_-_c||");
        Charger({"Titre", "Artiste", "Prêté"}, lignes);
        doc.IlFautSauver = false;
    }
    /// Runs `geste` at each move of the bar; what the bar read is gathered.
    void AChaquePas(const std::function<void()>& geste)
    {
        QObject::connect(&PB(), &QProgressBar::valueChanged, form.get(), [this, geste](int valeur) {
            pas.append(valeur);
            maximum = PB().maximum();
            minimum = PB().minimum();
            geste();
        });
    }

    std::unique_ptr<Forme> form;
    QList<int> pas;
    int maximum = -1;
    int minimum = -1;
    Guetteur* barre = nullptr; ///< of PB, which owns it
};
