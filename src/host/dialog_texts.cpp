// Button words.
#include "host/dialog_texts.h"

namespace chartproject {

DialogTexts DialogTextsOf(const std::string& language) {
  if (language == "Portuguese") {
    return {"OK",
            "Cancelar",
            "&Sim",
            "&Não",
            "A&juda",
            "&Abrir",
            "Ajuda",
            "O arquivo de ajuda %1 não foi encontrado.",
            "O arquivo de ajuda %1 não pode ser mostrado aqui."};
  }
  if (language == "Spanish") {
    return {"Aceptar",
            "Cancelar",
            "&Sí",
            "&No",
            "A&yuda",
            "&Abrir",
            "Ayuda",
            "No se encontró el archivo de ayuda %1.",
            "El archivo de ayuda %1 no se puede mostrar aquí."};
  }
  return {};
}

}  // namespace chartproject
