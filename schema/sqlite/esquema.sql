-- Tables of the embedded database. The production script beside it holds the same tables and columns.
-- Declared types decide what comes back: money is Currency, bit is Boolean, date is a day kept as ISO text.
-- Some indexes also hold what their look-up reads, or the planner would walk the company's rows instead.

-- The companies and their settings.
CREATE TABLE Empresas (
    Codigo smallint NOT NULL,
    Nombre varchar(60) NOT NULL DEFAULT '' CHECK (length(Nombre) <= 60),
    TarifasxFechas bit NOT NULL DEFAULT 0,
    Cod_EmpresaArticulos smallint NOT NULL DEFAULT 0,
    Cod_EmpresaClientes smallint NOT NULL DEFAULT 0,
    Cod_EmpresaExtra smallint NOT NULL DEFAULT 0,
    Tarifa smallint NOT NULL DEFAULT 0,
    VenderSinStock bit NOT NULL DEFAULT 0,
    CosteUltimaCompra bit NOT NULL DEFAULT 0,
    DecPrecios smallint NOT NULL DEFAULT 2,
    DecImportes smallint NOT NULL DEFAULT 2,
    DecCostes smallint NOT NULL DEFAULT 4,
    CaptionFamilia1 varchar(30) NOT NULL DEFAULT '' CHECK (length(CaptionFamilia1) <= 30),
    CaptionFamilia2 varchar(30) NOT NULL DEFAULT '' CHECK (length(CaptionFamilia2) <= 30),
    CaptionFamilia3 varchar(30) NOT NULL DEFAULT '' CHECK (length(CaptionFamilia3) <= 30),
    PRIMARY KEY (Codigo)
) WITHOUT ROWID;

-- Numbered parameters of a company.
CREATE TABLE Empresas_Parametros (
    Cod_Empresa smallint NOT NULL,
    Numero smallint NOT NULL,
    Valor varchar(50) CHECK (length(Valor) <= 50),
    PRIMARY KEY (Cod_Empresa, Numero)
) WITHOUT ROWID;

-- Article catalogue.
CREATE TABLE Articulos (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Descripcion varchar(60) NOT NULL DEFAULT '' CHECK (length(Descripcion) <= 60),
    Familia_1 smallint NOT NULL DEFAULT 0,
    Familia_2 smallint NOT NULL DEFAULT 0,
    Familia_3 smallint NOT NULL DEFAULT 0,
    UxCaja money NOT NULL DEFAULT 1,
    Largo money NOT NULL DEFAULT 0,
    Ancho money NOT NULL DEFAULT 0,
    Altura money NOT NULL DEFAULT 0,
    Control_NSeries bit NOT NULL DEFAULT 0,
    DStock bit NOT NULL DEFAULT 1,
    TipoImpuesto tinyint NOT NULL DEFAULT 1,
    CtaVentas varchar(15) NOT NULL DEFAULT '' CHECK (length(CtaVentas) <= 15),
    CtaDVentas varchar(15) NOT NULL DEFAULT '' CHECK (length(CtaDVentas) <= 15),
    Bloqueado bit NOT NULL DEFAULT 0,
    MsjAlerta varchar(200) NOT NULL DEFAULT '' CHECK (length(MsjAlerta) <= 200),
    Envase int NOT NULL DEFAULT 0,
    RAEE money NOT NULL DEFAULT 0,
    ECORAEE money NOT NULL DEFAULT 0,
    FidelizacionPuntos int NOT NULL DEFAULT 0,
    Control_Caducidad bit NOT NULL DEFAULT 0,
    TipoRep smallint NOT NULL DEFAULT 0,
    Control_Lotes bit NOT NULL DEFAULT 0,
    Peso money NOT NULL DEFAULT 0,
    MotivoBaja smallint NOT NULL DEFAULT 0,
    BajoPedido bit NOT NULL DEFAULT 0,
    TipoImpuesto2 tinyint NOT NULL DEFAULT 0,
    UnidadesDecimales bit NOT NULL DEFAULT 0,
    PadreVenta int NOT NULL DEFAULT 0,
    Tipo tinyint NOT NULL DEFAULT 0,
    FUCompra date NOT NULL DEFAULT '1900-01-01',
    FUVenta date NOT NULL DEFAULT '1900-01-01',
    PU_Compra float NOT NULL DEFAULT 0,
    DF_PU_Compra float NOT NULL DEFAULT 0,
    Mod_Ficha bit NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Articulos_Familias ON Articulos (Cod_Empresa, Familia_1, Familia_2, Familia_3, Descripcion);

-- Tariffs and what they are called.
CREATE TABLE Tarifas (
    Cod_Empresa smallint NOT NULL,
    Codigo smallint NOT NULL,
    Descripcion varchar(40) NOT NULL DEFAULT '' CHECK (length(Descripcion) <= 40),
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;

-- Current price of an article in a tariff.
CREATE TABLE Articulos_Tarifas (
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Cod_Tarifa smallint NOT NULL,
    Pvp money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Tarifa)
) WITHOUT ROWID;

-- Current price of a variant in a tariff.
CREATE TABLE Articulos_Tarifas_C (
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    Cod_Tarifa smallint NOT NULL,
    Pvp money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa)
) WITHOUT ROWID;

-- Scheduled price changes. Actualizado: it takes part; Borrado: it was withdrawn.
CREATE TABLE Tarifas_Modificacion (
    Codigo int NOT NULL,
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Cod_Tarifa smallint NOT NULL,
    Pvp money NOT NULL DEFAULT 0,
    Fecha_Entrada date NOT NULL,
    Actualizado bit NOT NULL DEFAULT 0,
    Borrado bit NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Fecha_Entrada, Codigo)
) WITHOUT ROWID;

-- Scheduled price changes of variants.
CREATE TABLE Tarifas_Modificacion_C (
    Codigo int NOT NULL,
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    Cod_Tarifa smallint NOT NULL,
    Pvp money NOT NULL DEFAULT 0,
    Fecha_Entrada date NOT NULL,
    Actualizado bit NOT NULL DEFAULT 0,
    Borrado bit NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa, Fecha_Entrada, Codigo)
) WITHOUT ROWID;

-- Warehouses.
CREATE TABLE Almacenes (
    Cod_Empresa smallint NOT NULL,
    Codigo smallint NOT NULL,
    Nombre varchar(40) NOT NULL DEFAULT '' CHECK (length(Nombre) <= 40),
    FUCompra date NOT NULL DEFAULT '1900-01-01',
    FUVenta date NOT NULL DEFAULT '1900-01-01',
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;

-- Stock, cost and locks of an article in a warehouse.
CREATE TABLE Almacen_Articulos (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Ubicacion varchar(30) NOT NULL DEFAULT '' CHECK (length(Ubicacion) <= 30),
    Stock_Actual float NOT NULL DEFAULT 0,
    Stock_Peso float NOT NULL DEFAULT 0,
    Stock_Minimo float NOT NULL DEFAULT 0,
    Stock_Optimo float NOT NULL DEFAULT 0,
    Pend_Recibir float NOT NULL DEFAULT 0,
    Pend_Servir float NOT NULL DEFAULT 0,
    Stock_MiniCompra float NOT NULL DEFAULT 0,
    Categoria varchar(10) NOT NULL DEFAULT '' CHECK (length(Categoria) <= 10),
    Cobertura smallint NOT NULL DEFAULT 0,
    Plazo_Reposicion smallint NOT NULL DEFAULT 0,
    PU_Compra float NOT NULL DEFAULT 0,
    P_Medio float NOT NULL DEFAULT 0,
    Rotacion float NOT NULL DEFAULT 0,
    FUlt_Compra date NOT NULL DEFAULT '1900-01-01',
    FUlt_Venta date NOT NULL DEFAULT '1900-01-01',
    FUlt_Inv date NOT NULL DEFAULT '1900-01-01',
    FIni_Existencias date NOT NULL DEFAULT '1900-01-01',
    FFin_Existencias date NOT NULL DEFAULT '1900-01-01',
    F_Dormido date NOT NULL DEFAULT '1900-01-01',
    Bloqueo bit NOT NULL DEFAULT 0,
    BloqueoVenta bit NOT NULL DEFAULT 0,
    ArticuloGenerico bit NOT NULL DEFAULT 0,
    DF_PU_Compra float NOT NULL DEFAULT 0,
    DF_P_Medio float NOT NULL DEFAULT 0,
    Desglosa_Pack bit NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Articulo)
) WITHOUT ROWID;

-- Stock and cost of a variant in a warehouse.
CREATE TABLE Almacen_Articulos_C (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    CualidadY tinyint NOT NULL,
    Stock_Actual float NOT NULL DEFAULT 0,
    Stock_Peso float NOT NULL DEFAULT 0,
    Pend_Recibir float NOT NULL DEFAULT 0,
    Pend_Servir float NOT NULL DEFAULT 0,
    Stock_MiniCompra float NOT NULL DEFAULT 0,
    PU_Compra float NOT NULL DEFAULT 0,
    P_Medio float NOT NULL DEFAULT 0,
    FUlt_Compra date NOT NULL DEFAULT '1900-01-01',
    FUlt_Venta date NOT NULL DEFAULT '1900-01-01',
    FIni_Existencias date NOT NULL DEFAULT '1900-01-01',
    FFin_Existencias date NOT NULL DEFAULT '1900-01-01',
    Bloqueo bit NOT NULL DEFAULT 0,
    DF_PU_Compra float NOT NULL DEFAULT 0,
    DF_P_Medio float NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY)
) WITHOUT ROWID;

-- Stock by location inside a warehouse.
CREATE TABLE Almacen_Articulos_Ubic (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Ubic1 varchar(10) NOT NULL COLLATE NOCASE CHECK (length(Ubic1) <= 10),
    Ubic2 varchar(10) NOT NULL COLLATE NOCASE CHECK (length(Ubic2) <= 10),
    Ubic3 varchar(10) NOT NULL COLLATE NOCASE CHECK (length(Ubic3) <= 10),
    Ubic4 varchar(10) NOT NULL COLLATE NOCASE CHECK (length(Ubic4) <= 10),
    Ubic5 varchar(10) NOT NULL COLLATE NOCASE CHECK (length(Ubic5) <= 10),
    Stock_Actual float NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubic1, Ubic2, Ubic3, Ubic4, Ubic5)
) WITHOUT ROWID;

-- Customers.
CREATE TABLE Clientes (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Nombre varchar(60) NOT NULL DEFAULT '' COLLATE NOCASE CHECK (length(Nombre) <= 60),
    Nombre_Comercial varchar(60) NOT NULL DEFAULT '' CHECK (length(Nombre_Comercial) <= 60),
    Direccion varchar(80) NOT NULL DEFAULT '' CHECK (length(Direccion) <= 80),
    Localidad varchar(50) NOT NULL DEFAULT '' CHECK (length(Localidad) <= 50),
    Provincia varchar(30) NOT NULL DEFAULT '' CHECK (length(Provincia) <= 30),
    Pais varchar(30) NOT NULL DEFAULT '' CHECK (length(Pais) <= 30),
    EMail varchar(80) NOT NULL DEFAULT '' CHECK (length(EMail) <= 80),
    Telefono varchar(20) NOT NULL DEFAULT '' CHECK (length(Telefono) <= 20),
    MotivoBaja smallint NOT NULL DEFAULT 0,
    F_Razon varchar(60) NOT NULL DEFAULT '' CHECK (length(F_Razon) <= 60),
    F_Via varchar(10) NOT NULL DEFAULT '' CHECK (length(F_Via) <= 10),
    F_Direccion varchar(80) NOT NULL DEFAULT '' CHECK (length(F_Direccion) <= 80),
    F_Numero varchar(10) NOT NULL DEFAULT '' CHECK (length(F_Numero) <= 10),
    F_Escalera varchar(5) NOT NULL DEFAULT '' CHECK (length(F_Escalera) <= 5),
    F_Piso varchar(5) NOT NULL DEFAULT '' CHECK (length(F_Piso) <= 5),
    F_Puerta varchar(5) NOT NULL DEFAULT '' CHECK (length(F_Puerta) <= 5),
    F_Cp varchar(10) NOT NULL DEFAULT '' CHECK (length(F_Cp) <= 10),
    F_Localidad varchar(50) NOT NULL DEFAULT '' CHECK (length(F_Localidad) <= 50),
    F_Provincia varchar(30) NOT NULL DEFAULT '' CHECK (length(F_Provincia) <= 30),
    F_Pais varchar(30) NOT NULL DEFAULT '' CHECK (length(F_Pais) <= 30),
    F_eMail varchar(80) NOT NULL DEFAULT '' CHECK (length(F_eMail) <= 80),
    F_Web varchar(80) NOT NULL DEFAULT '' CHECK (length(F_Web) <= 80),
    IntraCom bit NOT NULL DEFAULT 0,
    Portes bit NOT NULL DEFAULT 0,
    Divisas smallint NOT NULL DEFAULT 0,
    Ruta smallint NOT NULL DEFAULT 0,
    Zona smallint NOT NULL DEFAULT 0,
    Actividad smallint NOT NULL DEFAULT 0,
    Agencia_Transp smallint NOT NULL DEFAULT 0,
    padre int NOT NULL DEFAULT 0,
    Almacen_Asoc smallint NOT NULL DEFAULT 0,
    Tarifa_Pvp smallint NOT NULL DEFAULT 0,
    Tarifa_Promoc smallint NOT NULL DEFAULT 0,
    Bloqueado bit NOT NULL DEFAULT 0,
    Fecha_Bloq date,
    Motivo_Bloq varchar(100) NOT NULL DEFAULT '' CHECK (length(Motivo_Bloq) <= 100),
    Representante smallint NOT NULL DEFAULT 0,
    Vendedor smallint NOT NULL DEFAULT 0,
    Cobrador smallint NOT NULL DEFAULT 0,
    Fecha_Especial date,
    Desc_Especial varchar(60) NOT NULL DEFAULT '' CHECK (length(Desc_Especial) <= 60),
    Contravale bit NOT NULL DEFAULT 0,
    Mtto bit NOT NULL DEFAULT 0,
    Copias_Fra tinyint NOT NULL DEFAULT 1,
    Mensaje varchar(200) NOT NULL DEFAULT '' CHECK (length(Mensaje) <= 200),
    Tipo_Impresion tinyint NOT NULL DEFAULT 0,
    Tipo_Venta tinyint NOT NULL DEFAULT 0,
    Cod_Albaranes smallint NOT NULL DEFAULT 0,
    Periodo_Fact tinyint NOT NULL DEFAULT 0,
    Fact_Indep bit NOT NULL DEFAULT 0,
    Cta_Cliente varchar(15) NOT NULL DEFAULT '' CHECK (length(Cta_Cliente) <= 15),
    Cta_Retenciones varchar(15) NOT NULL DEFAULT '' CHECK (length(Cta_Retenciones) <= 15),
    Cta_Efectos varchar(15) NOT NULL DEFAULT '' CHECK (length(Cta_Efectos) <= 15),
    Cta_Ventas varchar(15) NOT NULL DEFAULT '' CHECK (length(Cta_Ventas) <= 15),
    Cta_DVentas varchar(15) NOT NULL DEFAULT '' CHECK (length(Cta_DVentas) <= 15),
    Cod_FPago smallint NOT NULL DEFAULT 0,
    DiaPago_1 tinyint NOT NULL DEFAULT 0,
    DiaPago_2 tinyint NOT NULL DEFAULT 0,
    DiaCierre_1 tinyint NOT NULL DEFAULT 0,
    DiaCierre_2 tinyint NOT NULL DEFAULT 0,
    TipoVenc tinyint NOT NULL DEFAULT 0,
    Dias_Venc smallint NOT NULL DEFAULT 0,
    Tipo_Carta tinyint NOT NULL DEFAULT 0,
    Grupo_Dto smallint NOT NULL DEFAULT 0,
    Dto_1 money NOT NULL DEFAULT 0,
    Dto_2 money NOT NULL DEFAULT 0,
    Dto_3 money NOT NULL DEFAULT 0,
    Dto_4 money NOT NULL DEFAULT 0,
    Dto_5 money NOT NULL DEFAULT 0,
    Dto_ProntoPago money NOT NULL DEFAULT 0,
    Retenciones money NOT NULL DEFAULT 0,
    Rec_Financiero money NOT NULL DEFAULT 0,
    Cta_Bancaria varchar(24) NOT NULL DEFAULT '' CHECK (length(Cta_Bancaria) <= 24),
    Cta_Remesas varchar(24) NOT NULL DEFAULT '' CHECK (length(Cta_Remesas) <= 24),
    Credito money NOT NULL DEFAULT 0,
    Riesgo money NOT NULL DEFAULT 0,
    Observ varchar(500) NOT NULL DEFAULT '' CHECK (length(Observ) <= 500),
    MsgAlerta varchar(200) NOT NULL DEFAULT '' CHECK (length(MsgAlerta) <= 200),
    Serie varchar(5) NOT NULL DEFAULT '' CHECK (length(Serie) <= 5),
    MaxPuntos int NOT NULL DEFAULT 0,
    FAlta date,
    FBaja date,
    FUVenta date,
    FUCobro date,
    Alternativo1 varchar(50) NOT NULL DEFAULT '' CHECK (length(Alternativo1) <= 50),
    Alternativo2 varchar(50) NOT NULL DEFAULT '' CHECK (length(Alternativo2) <= 50),
    Alternativo3 varchar(50) NOT NULL DEFAULT '' CHECK (length(Alternativo3) <= 50),
    Alternativo4 varchar(50) NOT NULL DEFAULT '' CHECK (length(Alternativo4) <= 50),
    Alternativo5 varchar(50) NOT NULL DEFAULT '' CHECK (length(Alternativo5) <= 50),
    TipoCliente smallint NOT NULL DEFAULT 0,
    EnvioEDI bit NOT NULL DEFAULT 0,
    Cad_Nivel_1 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_2 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_3 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_4 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_5 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_6 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_7 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_8 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_9 smallint NOT NULL DEFAULT 0,
    Cad_Nivel_10 smallint NOT NULL DEFAULT 0,
    Factura_PedirLote bit NOT NULL DEFAULT 0,
    Factura_PedirVto bit NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Nombre ON Clientes (Cod_Empresa, Nombre);
CREATE INDEX IX_Clientes_Codigo ON Clientes (Codigo);
CREATE INDEX IX_Clientes_Padre ON Clientes (Cod_Empresa, padre);

-- Telephones of a customer.
CREATE TABLE Clientes_Telefonos (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo tinyint NOT NULL,
    Numero varchar(20) NOT NULL DEFAULT '' CHECK (length(Numero) <= 20),
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)
) WITHOUT ROWID;

-- Contacts of a customer.
CREATE TABLE Clientes_Contactos (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo smallint NOT NULL,
    Nombre varchar(60) NOT NULL DEFAULT '' CHECK (length(Nombre) <= 60),
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)
) WITHOUT ROWID;

-- Installations of a customer.
CREATE TABLE Clientes_Instalaciones (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo smallint NOT NULL,
    Nombre varchar(60) NOT NULL DEFAULT '' CHECK (length(Nombre) <= 60),
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)
) WITHOUT ROWID;

-- Employees of a customer.
CREATE TABLE Clientes_Empleados (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo smallint NOT NULL,
    Nombre varchar(60) NOT NULL DEFAULT '' CHECK (length(Nombre) <= 60),
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)
) WITHOUT ROWID;

-- Notes on a customer, some of them pending until they are due.
CREATE TABLE Clientes_Notas (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo smallint NOT NULL,
    Texto varchar(200) NOT NULL DEFAULT '' CHECK (length(Texto) <= 200),
    Pendiente bit NOT NULL DEFAULT 0,
    Vencimiento date NOT NULL DEFAULT '1900-01-01',
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Notas_Pendientes ON Clientes_Notas (Cod_Empresa, Pendiente, Vencimiento);

-- Loyalty points that a customer won or spent.
CREATE TABLE Clientes_Puntos (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Codigo int NOT NULL,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Puntos int NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)
) WITHOUT ROWID;

-- Customer groups. Act: 0 marks a group whose discounts changed.
CREATE TABLE Clientes_Grp_Descuentos (
    Cod_Empresa smallint NOT NULL,
    Codigo smallint NOT NULL,
    Descripcion varchar(40) NOT NULL DEFAULT '' CHECK (length(Descripcion) <= 40),
    Act bit NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;

-- Discounts of a group by family or article and by range of units; 0 to 0 is any quantity.
CREATE TABLE Clientes_Grp_Descuentos_Fam (
    Cod_Empresa smallint NOT NULL,
    Cod_Grupo smallint NOT NULL,
    Nivel tinyint NOT NULL,
    Familia_1 smallint NOT NULL,
    Familia_2 smallint NOT NULL,
    Familia_3 smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Unidades_Min money NOT NULL,
    Unidades_Max money NOT NULL,
    Descuento float NOT NULL DEFAULT 0,
    Tipo_Descuento tinyint NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Grupo, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Unidades_Min,
        Unidades_Max)
) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Grp_Descuentos_Fam_Articulo
    ON Clientes_Grp_Descuentos_Fam (Cod_Empresa, Cod_Grupo, Nivel, Cod_Articulo, Familia_1, Familia_2, Familia_3,
        Unidades_Min, Unidades_Max, Descuento);

-- Discounts of a customer by family or article.
CREATE TABLE Descuentos_Familias (
    Codigo int NOT NULL DEFAULT 0,
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Nivel tinyint NOT NULL,
    Familia_1 smallint NOT NULL,
    Familia_2 smallint NOT NULL,
    Familia_3 smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Descuento float NOT NULL DEFAULT 0,
    Tipo_Descuento tinyint NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo)
) WITHOUT ROWID;
CREATE INDEX IX_Descuentos_Familias_Articulo
    ON Descuentos_Familias (Cod_Empresa, Cod_Cliente, Nivel, Cod_Articulo, Familia_1, Familia_2, Familia_3, Descuento);

-- Agreements of a chain node for an article. A last day of 31/12/2050 is open-ended.
CREATE TABLE Clientes_Cadenas_ConvArt (
    Cod_Empresa smallint NOT NULL,
    Cod_Articulo int NOT NULL,
    Cod_Nivel1 smallint NOT NULL,
    Cod_Nivel2 smallint NOT NULL,
    Cod_Nivel3 smallint NOT NULL,
    Cod_Nivel4 smallint NOT NULL,
    Cod_Nivel5 smallint NOT NULL,
    Cod_Nivel6 smallint NOT NULL,
    Cod_Nivel7 smallint NOT NULL,
    Cod_Nivel8 smallint NOT NULL,
    Cod_Nivel9 smallint NOT NULL,
    Cod_Nivel10 smallint NOT NULL,
    FechaEntrada date NOT NULL DEFAULT (date('now', 'localtime')),
    FechaSalida date NOT NULL DEFAULT '2050-12-31',
    PBase money NOT NULL DEFAULT 0,
    TDto1 smallint NOT NULL DEFAULT 0,
    ImporteDto1 money NOT NULL DEFAULT 0,
    CantidadDto1 money NOT NULL DEFAULT 0,
    Aplicar_Cascada1 bit NOT NULL DEFAULT 0,
    FechaEntrada1 date NOT NULL DEFAULT '1900-01-01',
    FechaSalida1 date NOT NULL DEFAULT '2050-12-31',
    TDto2 smallint NOT NULL DEFAULT 0,
    ImporteDto2 money NOT NULL DEFAULT 0,
    CantidadDto2 money NOT NULL DEFAULT 0,
    Aplicar_Cascada2 bit NOT NULL DEFAULT 0,
    FechaEntrada2 date NOT NULL DEFAULT '1900-01-01',
    FechaSalida2 date NOT NULL DEFAULT '2050-12-31',
    TDto3 smallint NOT NULL DEFAULT 0,
    ImporteDto3 money NOT NULL DEFAULT 0,
    CantidadDto3 money NOT NULL DEFAULT 0,
    Aplicar_Cascada3 bit NOT NULL DEFAULT 0,
    FechaEntrada3 date NOT NULL DEFAULT '1900-01-01',
    FechaSalida3 date NOT NULL DEFAULT '2050-12-31',
    TDto4 smallint NOT NULL DEFAULT 0,
    ImporteDto4 money NOT NULL DEFAULT 0,
    CantidadDto4 money NOT NULL DEFAULT 0,
    Aplicar_Cascada4 bit NOT NULL DEFAULT 0,
    FechaEntrada4 date NOT NULL DEFAULT '1900-01-01',
    FechaSalida4 date NOT NULL DEFAULT '2050-12-31',
    TDto5 smallint NOT NULL DEFAULT 0,
    ImporteDto5 money NOT NULL DEFAULT 0,
    CantidadDto5 money NOT NULL DEFAULT 0,
    Aplicar_Cascada5 bit NOT NULL DEFAULT 0,
    FechaEntrada5 date NOT NULL DEFAULT '1900-01-01',
    FechaSalida5 date NOT NULL DEFAULT '2050-12-31',
    Dto_Padre bit NOT NULL DEFAULT 0,
    Nivel smallint NOT NULL DEFAULT 0,
    Enviado smallint NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6,
        Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada)
) WITHOUT ROWID;

-- Price conventions: an amount off the base article's first tariff, or an amount on its purchase price.
CREATE TABLE Clientes_Convenio_Pvp (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    Cod_ArticuloB int NOT NULL DEFAULT 0,
    PUC money NOT NULL DEFAULT 0,
    Pvp money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Cod_Articulo)
) WITHOUT ROWID;

-- Prices agreed with a customer for an article between two days, both inclusive.
CREATE TABLE Clientes_Art_PVP (
    Cod_Empresa smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    Fecha_Inicial date NOT NULL,
    Fecha_Final date NOT NULL,
    PVP float NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final)
) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Art_PVP_Articulo ON Clientes_Art_PVP (Cod_Empresa, Cod_Articulo, Cod_Cliente, PVP);

-- Sales of an article to a customer by warehouse and day.
CREATE TABLE Clientes_Articulos (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    Fecha date NOT NULL,
    Unidades money NOT NULL DEFAULT 0,
    Importe_PVP money NOT NULL DEFAULT 0,
    Importe_Costo money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, Fecha)
) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Articulos_Cliente ON Clientes_Articulos (Cod_Empresa, Cod_Cliente);

-- Sales of an article to a customer by warehouse and day, kept apart for transfer.
CREATE TABLE Clientes_Articulos_Tx (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    Fecha date NOT NULL,
    Unidades money NOT NULL DEFAULT 0,
    Importe_PVP money NOT NULL DEFAULT 0,
    Importe_Costo money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, Fecha)
) WITHOUT ROWID;

-- Sales of a variant to a customer by warehouse and day.
CREATE TABLE Clientes_Articulos_C (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    CualidadY tinyint NOT NULL,
    Fecha date NOT NULL,
    Unidades money NOT NULL DEFAULT 0,
    Importe_PVP money NOT NULL DEFAULT 0,
    Importe_Costo money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, CualidadX, CualidadY, Fecha)
) WITHOUT ROWID;

-- Sales of a variant to a customer by warehouse and day, kept apart for transfer.
CREATE TABLE Clientes_Articulos_C_Tx (
    Cod_Empresa smallint NOT NULL,
    Cod_Almacen smallint NOT NULL,
    Cod_Cliente int NOT NULL,
    Cod_Articulo int NOT NULL,
    CualidadX tinyint NOT NULL,
    CualidadY tinyint NOT NULL,
    Fecha date NOT NULL,
    Unidades money NOT NULL DEFAULT 0,
    Importe_PVP money NOT NULL DEFAULT 0,
    Importe_Costo money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, CualidadX, CualidadY, Fecha)
) WITHOUT ROWID;

-- Invoices.
CREATE TABLE Facturas (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Facturas_Cliente ON Facturas (Cod_Empresa, Cliente);

-- Invoices of former years.
CREATE TABLE Facturas_Ex (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Facturas_Ex_Cliente ON Facturas_Ex (Cod_Empresa, Cliente);

-- Delivery notes; Factura_Codigo 0 is not yet invoiced.
CREATE TABLE Albaranes_F (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    Factura_Codigo int NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Albaranes_F_Cliente ON Albaranes_F (Cod_Empresa, Cliente, Factura_Codigo, Total);

-- Workshop delivery notes.
CREATE TABLE AlbaranesST (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_AlbaranesST_Cliente ON AlbaranesST (Cod_Empresa, Cliente);

-- Workshop entries.
CREATE TABLE Entradas_ST (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Entradas_ST_Cliente ON Entradas_ST (Cod_Empresa, Cliente);

-- Customer orders.
CREATE TABLE Pedidos_Clientes (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cod_Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Pedidos_Clientes_Cliente ON Pedidos_Clientes (Cod_Empresa, Cod_Cliente);

-- Quotations.
CREATE TABLE Presup (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Presup_Cliente ON Presup (Cod_Empresa, Cliente);

-- Pro forma invoices.
CREATE TABLE Proformas (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_Proformas_Cliente ON Proformas (Cod_Empresa, Cliente);

-- Tickets of the points of sale.
CREATE TABLE TPV_Tickets (
    Cod_Empresa smallint NOT NULL,
    Codigo int NOT NULL,
    Cliente int NOT NULL DEFAULT 0,
    Fecha date NOT NULL DEFAULT '1900-01-01',
    Total money NOT NULL DEFAULT 0,
    PRIMARY KEY (Cod_Empresa, Codigo)
) WITHOUT ROWID;
CREATE INDEX IX_TPV_Tickets_Cliente ON TPV_Tickets (Cod_Empresa, Cliente);

-- Work table of loose labels, by customer only.
CREATE TABLE Temp_EtiquetasSueltas_Clientes (
    Cod_Cliente int NOT NULL,
    Codigo int NOT NULL,
    PRIMARY KEY (Cod_Cliente, Codigo)
) WITHOUT ROWID;

-- Work table of external invoices.
CREATE TABLE Temp_FactExt (
    Cod_Empresa smallint NOT NULL,
    Cliente int NOT NULL,
    Codigo int NOT NULL,
    PRIMARY KEY (Cod_Empresa, Cliente, Codigo)
) WITHOUT ROWID;

-- Stored procedures: one SELECT each, parameters by name, one column for each output parameter.
CREATE TABLE Procedimientos (
    Nombre varchar(60) NOT NULL COLLATE NOCASE CHECK (length(Nombre) <= 60),
    Cuerpo varchar(4000) NOT NULL CHECK (length(Cuerpo) <= 4000),
    PRIMARY KEY (Nombre)
) WITHOUT ROWID;

-- Discount of a customer: the article's row, else the deepest family level in use that has one, else 0. What a
-- row holds in the family codes below its level says nothing; the lowest go first.
INSERT INTO Procedimientos (Nombre, Cuerpo) VALUES ('KVP_DevDtoDescuentosFamilias', '
SELECT COALESCE(
    (SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente
        AND Nivel = @Nivel AND Cod_Articulo = @Articulo ORDER BY Familia_1, Familia_2, Familia_3 LIMIT 1),
    (SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente
        AND @EmpFamilia3 <> 0 AND Nivel = 3 AND @Niveles >= 3 AND Familia_1 = @Familia1 AND Familia_2 = @Familia2
        AND Familia_3 = @Familia3 AND Cod_Articulo = 0),
    (SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente
        AND @EmpFamilia2 <> 0 AND Nivel = 2 AND @Niveles >= 2 AND Familia_1 = @Familia1 AND Familia_2 = @Familia2
        AND Cod_Articulo = 0 ORDER BY Familia_3 LIMIT 1),
    (SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente
        AND @EmpFamilia1 <> 0 AND Nivel = 1 AND Familia_1 = @Familia1
        AND Cod_Articulo = 0 ORDER BY Familia_2, Familia_3 LIMIT 1),
    0) AS Dto');

-- Discount of a customer's group for a quantity: the same order of levels; within a level the fitting range with the
-- highest lower bound (the narrower one among those), the row for any quantity (0 to 0) last. A quantity of 0 fits that
-- row alone, and group 0 is none. A group without rows, as most are, is done with before anything is put in order.
INSERT INTO Procedimientos (Nombre, Cuerpo) VALUES ('KVP_DevDtoClientesGrupos', '
SELECT COALESCE((SELECT
    (SELECT Descuento FROM (
        SELECT 4 AS Orden, Unidades_Min, Unidades_Max, Familia_1, Familia_2, Familia_3, Descuento
            FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto
            AND Nivel = @Nivel AND Cod_Articulo = @Articulo
        UNION ALL
        SELECT 3, Unidades_Min, Unidades_Max, Familia_1, Familia_2, Familia_3, Descuento
            FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto
            AND @EmpFamilia3 <> 0 AND Nivel = 3 AND @Niveles >= 3 AND Familia_1 = @Familia1
            AND Familia_2 = @Familia2 AND Familia_3 = @Familia3 AND Cod_Articulo = 0
        UNION ALL
        SELECT 2, Unidades_Min, Unidades_Max, Familia_1, Familia_2, Familia_3, Descuento
            FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto
            AND @EmpFamilia2 <> 0 AND Nivel = 2 AND @Niveles >= 2 AND Familia_1 = @Familia1
            AND Familia_2 = @Familia2 AND Cod_Articulo = 0
        UNION ALL
        SELECT 1, Unidades_Min, Unidades_Max, Familia_1, Familia_2, Familia_3, Descuento
            FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto
            AND @EmpFamilia1 <> 0 AND Nivel = 1 AND Familia_1 = @Familia1 AND Cod_Articulo = 0) AS Filas
        WHERE (Unidades_Min = 0 AND Unidades_Max = 0)
            OR (@Unidades <> 0 AND Unidades_Min <= @Unidades AND Unidades_Max >= @Unidades)
        ORDER BY Orden DESC, CASE WHEN Unidades_Min = 0 AND Unidades_Max = 0 THEN 1 ELSE 0 END, Unidades_Min DESC,
            Unidades_Max, Familia_1, Familia_2, Familia_3 LIMIT 1)
    FROM Clientes c WHERE c.Codigo = @Cliente
        AND c.Cod_Empresa = (SELECT Cod_EmpresaClientes FROM Empresas WHERE Codigo = @Empresa) AND c.Grupo_Dto <> 0
        AND EXISTS (SELECT 1 FROM Clientes_Grp_Descuentos_Fam
            WHERE Cod_Empresa = @Empresa AND Cod_Grupo = c.Grupo_Dto)),
    0) AS Dto');
