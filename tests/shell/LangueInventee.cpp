#include "shell/LangueInventee.h"

#include "support/PlateformeDeTest.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTabBar>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar Marque = u'»';

/// What a control shows or tells by texts of its own, not by what users type or choose from.
QStringList TextesDe(const QWidget& controle)
{
    QStringList textes{controle.toolTip(), controle.accessibleName(), controle.accessibleDescription()};
    if (const auto* etiquette = qobject_cast<const QLabel*>(&controle))
        textes += etiquette->text();
    if (const auto* bouton = qobject_cast<const QAbstractButton*>(&controle))
        textes += bouton->text();
    if (const auto* groupe = qobject_cast<const QGroupBox*>(&controle))
        textes += groupe->title();
    if (const auto* champ = qobject_cast<const QLineEdit*>(&controle))
        textes += champ->placeholderText();
    if (const auto* onglets = qobject_cast<const QTabBar*>(&controle)) {
        for (int i = 0; i < onglets->count(); ++i)
            textes += {onglets->tabText(i), onglets->tabToolTip(i)};
    }
    if (const auto* titres = qobject_cast<const QHeaderView*>(&controle); titres && titres->model()) {
        for (int i = 0; i < titres->count(); ++i)
            textes += titres->model()->headerData(i, titres->orientation()).toString();
    }
    return textes;
}

/// Those of `textes` that hold a word, and are neither marked nor data.
QStringList SansMarque(const QString& nom, const QStringList& textes, const QStringList& donnees)
{
    static const QRegularExpression mot(u"\\p{L}{2,}"_s);
    QStringList sans;
    for (const QString& texte : textes) {
        if (texte.contains(mot) && !texte.contains(Marque) && !donnees.contains(texte))
            sans.append(nom + u": "_s + texte);
    }
    return sans;
}

} // namespace

QString EcrireLangueInventee()
{
    QFile anglais(QStringLiteral(ZELVANE_LANGUES "/english.ini"));
    EXPECT_TRUE(anglais.open(QIODevice::ReadOnly));
    QStringList lignes = QString::fromLatin1(anglais.readAll()).split(u"\r\n"_s);
    for (QString& ligne : lignes) {
        if (const qsizetype egal = ligne.indexOf(u'='); egal > 0)
            ligne.insert(egal + 1, Marque);
    }
    return PlateformeDeTest::Courante().dossier.Ecrire("lang/inventee.ini", lignes.join(u"\r\n"_s).toLatin1());
}

QStringList SansTraduction(const QWidget& form, const QStringList& donnees)
{
    QStringList sans = SansMarque(u"title"_s, {form.windowTitle()}, donnees);
    for (const QWidget* controle : form.findChildren<QWidget*>()) {
        if (controle->isVisibleTo(&form))
            sans += SansMarque(NomDuControle(*controle), TextesDe(*controle), donnees);
    }
    return sans;
}

QStringList SansTraduction(const QMenu& menu, const QStringList& donnees)
{
    QStringList sans;
    for (const QAction* item : menu.actions())
        sans += SansMarque(menu.objectName() + u'/' + item->objectName(), {item->text()}, donnees);
    return sans;
}

QString NomDuControle(const QWidget& controle)
{
    return controle.objectName().isEmpty() ? QString::fromLatin1(controle.metaObject()->className())
                                           : controle.objectName();
}
