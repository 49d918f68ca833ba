#pragma once
// A text box that holds no more than its field can store: what would go past the
// limit (typed or pasted) is refused whole, with a message that says the limit,
// rather than cut without a word.

class QLineEdit;

namespace LimiteSaisie {

void limiter(QLineEdit *boite, int caracteres);

}  // namespace LimiteSaisie
