#include "shell/PanneauDAccueil.h"

#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "kit/TexteDInfobulle.h"
#include "platform/NomsSysteme.h"
#include "shell/PresenceDesFichiers.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int LargeurAuPlus = 640;
constexpr int CoteDIcone = 32;
constexpr int Air = 12;
constexpr int EntreLesLignes = 3;

} // namespace

PanneauDAccueil::PanneauDAccueil(QWidget& dessous)
    : QWidget(dessous.parentWidget()), m_dessous(dessous), m_titreRecents(new QLabel), m_recents(new QListWidget),
      m_titreExemples(new QLabel), m_exemples(new QHBoxLayout), m_presence(new PresenceDesFichiers(this))
{
    setObjectName(u"fAccueil"_s);
    m_titreRecents->setObjectName(u"lblRecents"_s);
    m_titreExemples->setObjectName(u"lblExemples"_s);
    m_recents->setObjectName(u"ListeRecents"_s);
    m_titreRecents->setBuddy(m_recents);
    m_recents->setTextElideMode(Qt::ElideMiddle);
    m_recents->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // As high as its few lines, where there is room.
    m_recents->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    m_recents->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    m_recents->setSpacing(EntreLesLignes);

    auto* boutons = new QHBoxLayout;
    boutons->setSpacing(Air);
    m_nouvelle = FaireBouton("btNouvelle", u"addcat"_s);
    m_ouvrir = FaireBouton("btOuvrir", u"open"_s);
    boutons->addWidget(m_nouvelle);
    boutons->addWidget(m_ouvrir);
    auto* milieu = new QWidget;
    milieu->setMaximumWidth(LargeurAuPlus);
    auto* colonne = new QVBoxLayout(milieu);
    colonne->setSpacing(Air);
    colonne->addLayout(boutons);
    colonne->addWidget(m_titreRecents);
    colonne->addWidget(m_recents);
    colonne->addWidget(m_titreExemples);
    colonne->addLayout(m_exemples);
    colonne->addStretch(1);
    for (QLabel* titre : {m_titreRecents, m_titreExemples})
        titre->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* autour = new QHBoxLayout(this);
    autour->addStretch(1);
    autour->addWidget(milieu, 100);
    autour->addStretch(1);

    connect(m_presence, &PresenceDesFichiers::Absents, this, &PanneauDAccueil::MarquerAbsents);
    connect(m_nouvelle, &QPushButton::clicked, this, &PanneauDAccueil::NouvelleDemandee);
    connect(m_ouvrir, &QPushButton::clicked, this, &PanneauDAccueil::OuvrirDemande);
    connect(m_recents, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* ligne) { Choisir(*ligne); });
    m_recents->installEventFilter(this);
    dessous.installEventFilter(this);
    setGeometry(dessous.geometry());
    MettreTextes();
    m_titreRecents->hide();
    m_recents->hide();
    MettreExemples({});
}

QPushButton* PanneauDAccueil::FaireBouton(const char* nom, const QString& icone)
{
    auto* bouton = new QPushButton(Icone(icone), QString());
    bouton->setObjectName(QString::fromLatin1(nom));
    bouton->setIconSize({CoteDIcone, CoteDIcone});
    bouton->setAutoDefault(true); // Enter presses it as the space bar does
    return bouton;
}

void PanneauDAccueil::MettreTextes()
{
    m_nouvelle->setText(LangMsg(u"msgAccueilNouvelle"_s, u"&Nouvelle catégorie"_s));
    m_ouvrir->setText(LangMsg(u"msgAccueilOuvrir"_s, u"O&uvrir"_s));
    m_titreRecents->setText(LangMsg(u"msgAccueilRecents"_s, u"Fichiers &récents"_s));
    m_recents->setAccessibleName(m_titreRecents->text().remove(u'&')); // a list does not take it from its label
    m_titreExemples->setText(LangMsg(u"msgAccueilExemples"_s, u"Exemples"_s));
}

void PanneauDAccueil::MettreRecents(const QStringList& chemins)
{
    const int courant = static_cast<int>(chemins.indexOf(CheminCourant()));
    if (chemins != m_chemins) {
        m_chemins = chemins;
        m_recents->clear();
        for (const QString& chemin : chemins) {
            auto* ligne = new QListWidgetItem(QFileInfo(chemin).fileName(), m_recents);
            ligne->setToolTip(TexteDInfobulle(chemin));
            ligne->setData(Qt::UserRole, chemin);
        }
        if (m_recents->count() > 0)
            m_recents->setCurrentRow(std::max(courant, 0));
        m_titreRecents->setVisible(!chemins.isEmpty());
        m_recents->setVisible(!chemins.isEmpty());
    }
    if (isVisible())
        m_presence->Regarder(m_chemins);
}

void PanneauDAccueil::MarquerAbsents(const QStringList& absents)
{
    for (int i = 0; i < m_recents->count(); ++i) {
        QListWidgetItem* ligne = m_recents->item(i);
        const QString chemin = ligne->data(Qt::UserRole).toString();
        const QString nom = QFileInfo(chemin).fileName();
        const bool absent = absents.contains(chemin);
        ligne->setText(absent ? LangMsg(u"msgRecentAbsent"_s, u"%1 (introuvable)"_s).Remplacer(u"%1"_s, nom).texte
                              : nom);
        QFont police = m_recents->font();
        police.setItalic(absent);
        ligne->setFont(police);
    }
}

QString PanneauDAccueil::CheminCourant() const
{
    const QListWidgetItem* ligne = m_recents->currentItem();
    return ligne ? ligne->data(Qt::UserRole).toString() : QString();
}

QWidget& PanneauDAccueil::PremierControle() const
{
    if (m_recents->count() > 0)
        return *m_recents;
    return *m_nouvelle;
}

void PanneauDAccueil::MettreExemples(const QStringList& chemins)
{
    while (QLayoutItem* ancien = m_exemples->takeAt(0)) {
        delete ancien->widget();
        delete ancien;
    }
    for (const QString& chemin : chemins) {
        auto* bouton = new QPushButton(QFileInfo(chemin).completeBaseName());
        bouton->setToolTip(TexteDInfobulle(chemin));
        bouton->setAutoDefault(true);
        connect(bouton, &QPushButton::clicked, this, [this, chemin] { emit ExempleChoisi(chemin); });
        m_exemples->addWidget(bouton);
    }
    m_titreExemples->setVisible(!chemins.isEmpty());
}

/// A copy: opening the file rewrites the list.
void PanneauDAccueil::Choisir(const QListWidgetItem& ligne)
{
    const QString chemin = ligne.data(Qt::UserRole).toString();
    emit RecentChoisi(chemin);
}

void PanneauDAccueil::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    m_presence->Regarder(m_chemins);
    m_recents->setCurrentRow(0);
    PremierControle().setFocus();
}

bool PanneauDAccueil::eventFilter(QObject* objet, QEvent* event)
{
    if (objet == &m_dessous && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        setGeometry(m_dessous.geometry());
    if (objet == m_recents && event->type() == QEvent::KeyPress && m_recents->currentItem()) {
        const int touche = static_cast<QKeyEvent*>(event)->key();
        if (touche == Qt::Key_Return || touche == Qt::Key_Enter) {
            Choisir(*m_recents->currentItem());
            return true;
        }
    }
    return QWidget::eventFilter(objet, event);
}

QStringList ExemplesInstalles()
{
    const QDir programme(QCoreApplication::applicationDirPath());
    for (const QString& dossier : {u"../share/doc/zelvane/examples"_s, u"../../../examples"_s}) {
        QStringList exemples;
        for (const QString& nom : {u"discotheque.qrt"_s, u"bibliotheque.qrt"_s}) {
            const QString chemin = QDir::cleanPath(programme.filePath(dossier + u'/' + nom));
            if (EstFichier(chemin))
                exemples.append(chemin);
        }
        if (!exemples.isEmpty())
            return exemples;
    }
    return {};
}
