#include "extensions/dialogues/About.h"

#include "extensions/dialogues/Aide.h"
#include "extensions/langue/LangForm.h"
#include "extensions/langue/modLang.h"
#include "kit/Icones.h"
#include "ui_About.h"

#include <QKeyEvent>
#include <QMouseEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int CoteImage = 64;
constexpr auto Tag = "Tag"; // the address behind a label

QString Traducteur(const QString& cle, const QString& defaut)
{
    return DecoderTexte(LireProfil(cle, defaut, u"Traducteur"_s, FichierLangue));
}

QString Construction()
{
    return QStringLiteral(ZELVANE_VERSION).replace(u'.', u'-');
}

/// Like a link, the label under the pointer or with the focus is underlined.
void Souligner(QLabel& etiquette)
{
    QFont police = etiquette.font();
    const bool souligne = etiquette.hasFocus() || etiquette.underMouse();
    if (police.underline() == souligne)
        return;
    police.setUnderline(souligne);
    etiquette.setFont(police);
}

bool EstUnAppui(const QEvent& event)
{
    if (event.type() == QEvent::MouseButtonRelease)
        return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
    if (event.type() != QEvent::KeyPress)
        return false;
    const int touche = static_cast<const QKeyEvent&>(event).key();
    return touche == Qt::Key_Return || touche == Qt::Key_Enter || touche == Qt::Key_Space;
}

} // namespace

About::About(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::About>())
{
    m_ui->setupUi(this);
    m_ui->Image1->setPixmap(Icone(u"zelvane"_s).pixmap(CoteImage));
    m_ui->Command1->setIcon(Icone(u"annuler"_s));
    connect(m_ui->Command1, &QPushButton::clicked, this, &QDialog::close);

    const QString courrier = u"\n    Email : "_s;
    Presenter(*m_ui->Label3_0,
              u"Zelvane by Morvenal"_s + courrier + AdresseDuFabricant + u"\nBuild "_s + Construction(),
              AdresseDuFabricant);
    const QString email = Traducteur(u"Email"_s, AdresseDuFabricant);
    const QString traduction = LangMsg(u"msgTraduction"_s, u"Traduction"_s);
    Presenter(*m_ui->Label3_1, traduction + u' ' + Traducteur(u"Nom"_s, u"--"_s) + courrier + email, email);
    m_ui->Command1->setFocus();
    LangForm(*this);
}

About::~About() = default;

void About::Presenter(QLabel& etiquette, const QString& texte, const QString& adresse)
{
    etiquette.setText(texte);
    etiquette.setProperty(Tag, adresse);
    etiquette.setCursor(Qt::PointingHandCursor);
    etiquette.installEventFilter(this);
}

bool About::eventFilter(QObject* objet, QEvent* event)
{
    if (EstUnAppui(*event)) {
        EcrireA(objet->property(Tag).toString());
        return true;
    }
    if (auto* etiquette = qobject_cast<QLabel*>(objet))
        Souligner(*etiquette);
    return QDialog::eventFilter(objet, event);
}
