#include "tests/servidor/ServidorTds.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

#include "base/RuntimeError.h"
#include "db/Nombres.h"
#include "schema/Esquema.h"
#include "schema/Lotes.h"

namespace kv::prueba {
namespace {

// Kinds of message and of what they are made of, by their names in the protocol.
enum Clase : unsigned { SqlBatch = 1, Rpc = 3, Login7 = 16, PreLogin = 18, TransactionManager = 14 };
enum Marca : unsigned { ReturnStatus = 0x79, ColMetadata = 0x81, Error = 0xAA, ReturnValue = 0xAC, LoginAck = 0xAD };
enum MarcaFin : unsigned { Row = 0xD1, EnvChange = 0xE3, Done = 0xFD, DoneProc = 0xFE };
enum Estado : unsigned { ConFallo = 2, ConCuenta = 16 };

constexpr std::size_t kPaquete = 4096;
constexpr std::size_t kCabecera = 8;

[[noreturn]] void Quejarse(const std::string& de) {
    throw std::runtime_error(de);
}

void Fin(MensajeTds& mensaje, MarcaFin marca, unsigned estado, std::uint64_t filas) {
    mensaje.Numero(marca, 1);
    mensaje.Numero(estado, 2);
    mensaje.Numero(0xC1, 2);
    mensaje.Numero(filas, 8);
}

MensajeTds Fallo(const RuntimeError& error, MarcaFin marca) {
    MensajeTds contenido;
    contenido.Numero(static_cast<std::uint32_t>(error.numero), 4);
    contenido.Octetos({"\x01\x10", 2});
    contenido.Texto(error.descripcion, 2);
    contenido.Texto("servidor", 1);
    contenido.Texto("", 1);
    contenido.Numero(1, 4);
    MensajeTds mensaje;
    mensaje.Parte(Error, contenido);
    Fin(mensaje, marca, ConFallo, 0);
    return mensaje;
}

MensajeTds Bienvenida() {
    MensajeTds intercalacion;
    intercalacion.Numero(7, 1);
    intercalacion.Numero(kIntercalacion.size(), 1);
    intercalacion.Octetos(kIntercalacion);
    intercalacion.Numero(0, 1);
    MensajeTds version;
    version.Octetos({"\x01\x74\x00\x00\x04", 5});
    version.Texto("Servidor de pruebas", 1);
    version.Octetos({"\x0B\x00\x08\x34", 4});
    MensajeTds mensaje;
    mensaje.Parte(EnvChange, intercalacion);
    mensaje.Parte(LoginAck, version);
    Fin(mensaje, Done, 0, 0);
    return mensaje;
}

// The transaction that begins, or the one that ends, as the driver has to know it.
void Aviso(MensajeTds& mensaje, unsigned que, bool empieza) {
    MensajeTds cambio;
    cambio.Numero(que, 1);
    cambio.Numero(empieza ? 8 : 0, 1);
    if (empieza) cambio.Numero(1, 8);
    cambio.Numero(empieza ? 0 : 8, 1);
    if (!empieza) cambio.Numero(1, 8);
    mensaje.Parte(EnvChange, cambio);
}

bool Recibir(int cliente, unsigned& clase, std::string& peticion) {
    peticion.clear();
    for (;;) {
        unsigned char cabecera[kCabecera];
        if (recv(cliente, cabecera, kCabecera, MSG_WAITALL) != static_cast<ssize_t>(kCabecera)) return false;
        clase = cabecera[0];
        std::string trozo((static_cast<std::size_t>(cabecera[2]) << 8U | cabecera[3]) - kCabecera, '\0');
        if (recv(cliente, trozo.data(), trozo.size(), MSG_WAITALL) != static_cast<ssize_t>(trozo.size())) return false;
        peticion += trozo;
        if ((cabecera[1] & 1U) != 0) return true;
    }
}

void Enviar(int cliente, std::string_view respuesta) {
    std::string paquetes;
    for (unsigned orden = 1; orden == 1 || !respuesta.empty(); ++orden) {
        const std::string_view trozo = respuesta.substr(0, kPaquete - kCabecera);
        respuesta.remove_prefix(trozo.size());
        const std::size_t largo = trozo.size() + kCabecera;
        for (const std::size_t octeto : {std::size_t{4}, std::size_t{respuesta.empty() ? 1U : 0U}, largo >> 8U, largo,
                                         std::size_t{0}, std::size_t{0}, std::size_t{orden}, std::size_t{0}})
            paquetes.push_back(static_cast<char>(octeto & 0xFFU));
        paquetes += trozo;
    }
    for (std::string_view quedan = paquetes; !quedan.empty();) {
        const ssize_t enviados = send(cliente, quedan.data(), quedan.size(), MSG_NOSIGNAL);
        if (enviados <= 0) Quejarse("el cliente no espera la respuesta");
        quedan.remove_prefix(static_cast<std::size_t>(enviados));
    }
}

struct Declarado {
    std::string nombre;
    DataType tipo;
    bool sale;
};

// The parameters of a procedure of the production script.
std::vector<Declarado> Declarados(const std::string& procedimiento) {
    static const std::map<std::string, DataType> kTipos = {{"smallint", DataType::adSmallInt},
                                                           {"int", DataType::adInteger},
                                                           {"tinyint", DataType::adTinyInt},
                                                           {"bit", DataType::adBoolean},
                                                           {"money", DataType::adCurrency}};
    const std::string& guion = EsquemaSqlServer();
    const std::size_t inicio = guion.find("ALTER PROCEDURE " + procedimiento + "\n");
    if (inicio == std::string::npos) Quejarse("no hay procedimiento " + procedimiento);
    std::vector<Declarado> declarados;
    const std::vector<Token> tokens =
        TokensDe(std::string_view(guion).substr(inicio, guion.find("\nAS", inicio) - inicio));
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i)
        if (tokens[i].texto.front() == '@')
            declarados.push_back({std::string(tokens[i].texto), kTipos.at(std::string(tokens[i + 1].texto)),
                                  i + 2 < tokens.size() && tokens[i + 2].EsPalabra("OUTPUT")});
    return declarados;
}

}  // namespace

ServidorTds::ServidorTds(std::shared_ptr<Connection> base) : base_(std::move(base)) {
    for (const std::string_view lote : LotesDe(EsquemaSqlServer())) lotes_.emplace(lote);
    sockaddr_in direccion{};
    direccion.sin_family = AF_INET;
    direccion.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof direccion;
    auto* nombre = reinterpret_cast<sockaddr*>(&direccion);  // NOLINT: as the system's calls want it.
    escucha_ = socket(AF_INET, SOCK_STREAM, 0);
    if (bind(escucha_, nombre, largo) != 0 || listen(escucha_, 1) != 0 || getsockname(escucha_, nombre, &largo) != 0)
        Quejarse("no hay puerto para el servidor");
    puerto_ = ntohs(direccion.sin_port);
    hilo_ = std::thread([this] { Atender(); });
}

ServidorTds::~ServidorTds() {
    shutdown(escucha_, SHUT_RDWR);
    hilo_.join();
    close(escucha_);
}

void ServidorTds::Atender() {
    for (int cliente = 0; (cliente = accept(escucha_, nullptr, nullptr)) >= 0; close(cliente)) {
        try {
            Conversar(cliente);
        } catch (const std::exception& error) {
            queja_ = error.what();
        }
    }
}

void ServidorTds::Conversar(int cliente) {
    unsigned clase = 0;
    for (std::string peticion; Recibir(cliente, clase, peticion);) {
        if (clase == PreLogin)
            // Its version, and that it has no encryption.
            Enviar(cliente, {"\0\0\x0B\0\x06\x01\0\x11\0\x01\xFF\x0B\0\x08\x34\0\0\x02", 18});
        else
            Enviar(cliente, Contestar(clase, peticion).Bytes());
    }
}

MensajeTds ServidorTds::Contestar(unsigned clase, std::string_view peticion) {
    if (clase == Login7) return Bienvenida();
    ++respuestas_;
    LecturaTds lectura(peticion);
    // What stands before every request says its own size.
    lectura.Octetos(lectura.Numero(4) - 4);
    try {
        if (clase == SqlBatch) return Ejecutar(lectura.Texto(lectura.Quedan() / 2));
        if (clase == Rpc) return Llamar(lectura);
        if (clase == TransactionManager) return CambiarTransaccion(lectura);
    } catch (const RuntimeError& error) {
        return Fallo(error, clase == Rpc ? DoneProc : Done);
    }
    Quejarse("mensaje de clase " + std::to_string(clase));
}

MensajeTds ServidorTds::Ejecutar(const std::string& texto) {
    struct Sabida {
        std::string_view texto;
        std::vector<std::string> columnas;
        Filas filas;
    };
    const Sabida sabidas[] = {
        {"SELECT CAST('05/03/2001' AS datetime) AS Dia, CAST('13/02/2001' AS datetime) AS Otro, N'ñ €' AS Texto",
         {"Dia", "Otro", "Texto"},
         {{Fecha::DeAmd(2001, 3, 5), Fecha::DeAmd(2001, 2, 13), "ñ €"}}},
        {"SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE = 'BASE TABLE'", {"TABLE_NAME"}, {}},
        {"SELECT 'ñ€' AS Texto WHERE 'a' = 'A'", {"Texto"}, {{"ñ€"}}},
        {"SELECT OBJECT_ID('Empresas', 'U') AS Tabla",
         {"Tabla"},
         {{conTablas_ ? Valor(std::int32_t{1}) : Valor(Nulo{})}}},
    };
    for (const Sabida& sabida : sabidas)
        if (texto == sabida.texto) return Tabla(texto, sabida.columnas, sabida.filas);
    if (texto.starts_with("SELECT") || texto.starts_with(" SELECT")) return Consultar(texto);
    MensajeTds mensaje;
    const bool lote = lotes_.contains(texto);
    conTablas_ = conTablas_ || lote;
    const bool ajustes = texto.starts_with("SET QUOTED_IDENTIFIER ON SET") && texto.ends_with("SET DATEFORMAT dmy");
    if (lote || ajustes)
        Fin(mensaje, Done, 0, 0);
    else
        Fin(mensaje, Done, ConCuenta, static_cast<std::uint64_t>(base_->EjecutarContando(texto)));
    return mensaje;
}

MensajeTds ServidorTds::Consultar(const std::string& texto) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *base_, texto);
    std::vector<std::string> columnas;
    for (std::int32_t i = 0; i < rs->NumeroCampos(); ++i) columnas.emplace_back(rs->NombreCampo(i));
    Filas filas;
    for (; !rs->Eof(); rs->MoveNext()) {
        std::vector<Valor>& fila = filas.emplace_back();
        for (const std::string& columna : columnas) fila.push_back(rs->Fields(columna).Value());
    }
    return Tabla(texto, columnas, filas);
}

TipoTds ServidorTds::TipoDeColumna(const std::string& texto, const std::string& columna, std::size_t posicion,
                                   const Filas& filas) const {
    for (const Token& token : TokensDe(texto)) {
        const auto tabla = tipos_.find(Minusculas(token.texto));
        if (tabla == tipos_.end()) continue;
        const auto tipo = tabla->second.find(Minusculas(columna));
        if (tipo != tabla->second.end()) return tipo->second;
    }
    const auto dada =
        std::find_if(filas.begin(), filas.end(), [&](const auto& fila) { return !EsNulo(fila[posicion]); });
    return dada == filas.end() ? TipoTds::Texto : TipoDeValor((*dada)[posicion]);
}

MensajeTds ServidorTds::Tabla(const std::string& texto, const std::vector<std::string>& columnas,
                              const Filas& filas) const {
    MensajeTds mensaje;
    std::vector<TipoTds> tipos;
    mensaje.Numero(ColMetadata, 1);
    mensaje.Numero(columnas.size(), 2);
    for (const std::string& columna : columnas) {
        tipos.push_back(TipoDeColumna(texto, columna, tipos.size(), filas));
        mensaje.Numero(0, 4);
        mensaje.Numero(9, 2);
        EscribirTipo(mensaje, tipos.back());
        mensaje.Texto(columna, 1);
    }
    for (const std::vector<Valor>& fila : filas) {
        mensaje.Numero(Row, 1);
        for (std::size_t i = 0; i < tipos.size(); ++i) EscribirValor(mensaje, tipos[i], fila[i]);
    }
    Fin(mensaje, Done, ConCuenta, filas.size());
    return mensaje;
}

MensajeTds ServidorTds::Llamar(LecturaTds& lectura) {
    const std::string nombre = lectura.Texto(lectura.Numero(2));
    const std::vector<Declarado> declarados = Declarados(nombre);
    lectura.Numero(2);
    const auto procedimiento = base_->CrearCommand();
    procedimiento->CommandType = CommandType::adCmdStoredProc;
    procedimiento->CommandText = nombre;
    for (const Declarado& declarado : declarados) {
        const ParametroTds parametro = LeerParametro(lectura);
        if (parametro.sale != declarado.sale) Quejarse(nombre + ": dirección de " + declarado.nombre);
        procedimiento->Parameters.Append(
            declarado.nombre, declarado.tipo,
            declarado.sale ? ParameterDirection::adParamOutput : ParameterDirection::adParamInput, 0, parametro.valor);
    }
    if (lectura.Quedan() != 0) Quejarse(nombre + ": sobran parámetros");
    procedimiento->Execute(CommandType::adCmdStoredProc);
    MensajeTds mensaje;
    mensaje.Numero(ReturnStatus, 1);
    mensaje.Numero(0, 4);
    for (std::size_t i = 0; i < declarados.size(); ++i) {
        if (!declarados[i].sale) continue;
        mensaje.Numero(ReturnValue, 1);
        mensaje.Numero(i, 2);
        mensaje.Texto(declarados[i].nombre, 1);
        mensaje.Numero(1, 7);
        EscribirDecimal(mensaje, procedimiento->Parameters.Item(declarados[i].nombre).Value);
    }
    Fin(mensaje, DoneProc, 0, 0);
    return mensaje;
}

MensajeTds ServidorTds::CambiarTransaccion(LecturaTds& lectura) {
    constexpr unsigned kEmpezar = 5;
    constexpr unsigned kConfirmar = 7;
    constexpr unsigned kDeshacer = 8;
    const auto peticion = static_cast<unsigned>(lectura.Numero(2));
    if (peticion != kEmpezar && peticion != kConfirmar && peticion != kDeshacer)
        Quejarse("petición de transacción " + std::to_string(peticion));
    bool empieza = peticion == kEmpezar;
    MensajeTds mensaje;
    if (!empieza) {
        if (peticion == kConfirmar)
            base_->CommitTrans();
        else
            base_->RollbackTrans();
        Aviso(mensaje, peticion + 2, false);
        // The driver may ask for the next transaction in the same message.
        lectura.Texto(lectura.Numero(1));
        empieza = lectura.Numero(1) != 0;
    }
    if (empieza) {
        base_->BeginTrans();
        Aviso(mensaje, 8, true);
    }
    Fin(mensaje, Done, 0, 0);
    return mensaje;
}

}  // namespace kv::prueba
