#include "extensions/dialogues/AideDesFenetres.h"

#include "extensions/dialogues/Aide.h"
#include "platform/Retenue.h"

#include <QApplication>
#include <QHash>
#include <QKeyEvent>
#include <QWidget>

using namespace Qt::StringLiterals;

AideDesFenetres::AideDesFenetres()
{
    QCoreApplication::instance()->installEventFilter(this);
}

QString AideDesFenetres::PageDe(const QString& fenetre)
{
    static const QHash<QString, QString> pages{
        {u"frmAddCategorie2"_s, u"categories"_s},
        {u"frmCommentaires"_s, u"categories"_s},
        {u"frmMotDePasse"_s, u"categories"_s},
        {u"frmSecours"_s, u"secours"_s},
        {u"frmEditEntree"_s, u"entrees"_s},
        {u"frmSuppr"_s, u"entrees"_s},
        {u"frmSuppDependant"_s, u"entrees"_s},
        {u"frmPreEnregistre"_s, u"entrees"_s},
        {u"frmCopieParLot"_s, u"entrees"_s},
        {u"frmDragAndDrop"_s, u"entrees"_s},
        {u"frmChangeImage"_s, u"images"_s},
        {u"frmRemplacerImg"_s, u"images"_s},
        {u"frmSupprImg"_s, u"images"_s},
        {u"frmView"_s, u"images"_s},
        {u"frmEditerColonnes"_s, u"colonnes"_s},
        {u"frmFusionner"_s, u"colonnes"_s},
        {u"frmSeparerEn2"_s, u"colonnes"_s},
        {u"frmRecherche"_s, u"rechercher"_s},
        {u"frmCompare1"_s, u"comparer"_s},
        {u"frmCompare2"_s, u"comparer"_s},
        {u"frmExport"_s, u"exporter"_s},
        {u"frmPrint"_s, u"imprimer"_s},
        {u"frmPrintOptions"_s, u"imprimer"_s},
        {u"frmApercu"_s, u"imprimer"_s},
        {u"frmPreter"_s, u"preter"_s},
        {u"frmContacts"_s, u"preter"_s},
        {u"frmContacts2"_s, u"preter"_s},
        {u"frmMail"_s, u"preter"_s},
        {u"frmStat"_s, u"preter"_s},
        {u"frmOptions"_s, u"options"_s},
        {u"frmPolice"_s, u"options"_s},
        {u"frmLang"_s, u"langues"_s},
        {u"frmPlugins"_s, u"plugins"_s},
    };
    return pages.value(fenetre, u"aideZelvane"_s) + u".html"_s;
}

bool AideDesFenetres::eventFilter(QObject* objet, QEvent* event)
{
    const auto* controle = event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(objet) : nullptr;
    if (!controle || controle->window()->objectName() == "MDIForm1"_L1)
        return QObject::eventFilter(objet, event);
    const auto* touche = static_cast<QKeyEvent*>(event);
    if (touche->key() != Qt::Key_F1 || touche->modifiers() != Qt::NoModifier)
        return QObject::eventFilter(objet, event);
    Retenue::Apres(this, [page = PageDe(controle->window()->objectName())] { AfficherPageDAide(page); });
    return true;
}
