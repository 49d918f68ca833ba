#include "LimiteSaisie.h"

#include "Messages.h"

#include <QLineEdit>
#include <QValidator>

namespace LimiteSaisie {

namespace {
class Limite : public QValidator {
public:
    Limite(QLineEdit *boite, int caracteres) : QValidator(boite), caracteres_(caracteres), avant_(boite->text().size()) {
        // The box's text as it stood before an edit: during the check the box already shows the new one.
        connect(boite, &QLineEdit::textChanged, this, [this](const QString &texte) { avant_ = texte.size(); });
    }
    State validate(QString &texte, int &) const override {
        // A text already longer (stored before the limit was known) may still be shortened.
        return texte.size() > caracteres_ && texte.size() > avant_ ? Invalid : Acceptable;
    }

private:
    int caracteres_;
    qsizetype avant_;
};
}  // namespace

void limiter(QLineEdit *boite, int caracteres) {
    boite->setValidator(new Limite(boite, caracteres));
    QObject::connect(boite, &QLineEdit::inputRejected, boite, [caracteres] {
        Messages::information(QStringLiteral("Ce champ contient au plus %1 caractères : le texte qui l'aurait dépassé "
                                             "n'a pas été ajouté. Raccourcissez-le, puis recommencez.")
                                  .arg(caracteres));
    });
}

}  // namespace LimiteSaisie
