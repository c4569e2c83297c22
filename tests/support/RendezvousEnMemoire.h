// A rendezvous of one test: the other instance is what the test says it is.
#pragma once

#include "platform/Rendezvous.h"

#include <QString>
#include <QStringList>

#include <optional>

class RendezvousEnMemoire : public Rendezvous
{
public:
    struct Autre
    {
        qint32 poignee = 0;
        QString titre;
    };

    qint32 Poignee() const override { return poignee; }
    void Servir(ServicesInstance offerts) override { services = std::move(offerts); }
    qint32 Chercher(const QString& titre, const std::function<void()>& publier) override;
    void PrendreLaPlace(const QString& titre, const std::function<void()>& publier) override;
    void Quitter() override;
    bool Envoyer(qint32 a, const QString& texte) override;
    bool Montrer(qint32 a) override;
    bool Fermer(qint32 a) override;

    qint32 poignee = 4711;
    std::optional<Autre> autre; ///< the instance that runs
    ServicesInstance services;  ///< what this process offers
    QString titreTrouve;        ///< the title under which this process is found; empty while it is not
    QStringList journal;        ///< what the other instance was asked, as it understood it

private:
    bool Demander(qint32 a, const QString& quoi);
};
