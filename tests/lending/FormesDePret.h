// The forms of lending, by what a user does with them.
#pragma once

#include "base/Const_Vrac.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

inline QPushButton& Bouton(const QWidget& form, const char* nom)
{
    return *form.findChild<QPushButton*>(QString::fromLatin1(nom));
}
inline QLineEdit& Champ(const QWidget& form, const char* nom)
{
    return *form.findChild<QLineEdit*>(QString::fromLatin1(nom));
}
inline QString Libelle(const QWidget& form, const char* nom)
{
    return form.findChild<QLabel*>(QString::fromLatin1(nom))->text().remove(u'&');
}
inline QString Caption(const QWidget& form, const char* nom)
{
    return Bouton(form, nom).text().remove(u'&');
}
inline void Cliquer(const QWidget& form, const char* nom)
{
    QTest::mouseClick(&Bouton(form, nom), Qt::LeftButton);
}
/// Replaces what stands in a field.
inline void Taper(QLineEdit& champ, const QString& texte)
{
    champ.setFocus();
    champ.selectAll();
    QTest::keyClick(&champ, Qt::Key_Delete);
    QTest::keyClicks(&champ, texte);
}

/// A test with the contact list that it wants.
class FormeDePret : public testing::Test
{
protected:
    /// The keys of the section, "count=…" among them.
    static void Liste(const QByteArray& cles)
    {
        PlateformeDeTest::Courante().dossier.Ecrire(QStringLiteral("Zelvane.ini"), "[Preter]\r\n" + cles);
    }
    static QByteArray Ini() { return PlateformeDeTest::Courante().dossier.Lire(QStringLiteral("Zelvane.ini")); }

    FileDeReponses reponses;
};
