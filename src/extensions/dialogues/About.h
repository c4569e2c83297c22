// The about box: who made the program and who translated it.
#pragma once

#include <QDialog>

#include <memory>

class QLabel;

namespace Ui {
class About;
}

class About : public QDialog
{
    Q_OBJECT

public:
    explicit About(QWidget* parent = nullptr);
    ~About() override;

protected:
    /// A click on a person's label, or Enter on it, begins a mail to its Tag.
    bool eventFilter(QObject* objet, QEvent* event) override;

private:
    void Presenter(QLabel& etiquette, const QString& texte, const QString& adresse);

    std::unique_ptr<Ui::About> m_ui;
};
