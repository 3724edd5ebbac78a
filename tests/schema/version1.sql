-- The tables as the first version of the program made them: not to be changed any more.
CREATE TABLE Empresas (Codigo smallint NOT NULL, Nombre varchar(60) NOT NULL DEFAULT '', TarifasxFechas bit NOT NULL DEFAULT 0, Cod_EmpresaArticulos smallint NOT NULL DEFAULT 0,
Cod_EmpresaClientes smallint NOT NULL DEFAULT 0, Cod_EmpresaExtra smallint NOT NULL DEFAULT 0, Tarifa smallint NOT NULL DEFAULT 0, VenderSinStock bit NOT NULL DEFAULT 0,
CosteUltimaCompra bit NOT NULL DEFAULT 0, DecPrecios smallint NOT NULL DEFAULT 2, DecImportes smallint NOT NULL DEFAULT 2, DecCostes smallint NOT NULL DEFAULT 4, CaptionFamilia1
varchar(30) NOT NULL DEFAULT '', CaptionFamilia2 varchar(30) NOT NULL DEFAULT '', CaptionFamilia3 varchar(30) NOT NULL DEFAULT '', PRIMARY KEY (Codigo)) WITHOUT ROWID;
CREATE TABLE Empresas_Parametros (Cod_Empresa smallint NOT NULL, Numero smallint NOT NULL, Valor varchar(50), PRIMARY KEY (Cod_Empresa, Numero)) WITHOUT ROWID;
CREATE TABLE Articulos (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Descripcion varchar(60) NOT NULL DEFAULT '', Familia_1 smallint NOT NULL DEFAULT 0, Familia_2 smallint
NOT NULL DEFAULT 0, Familia_3 smallint NOT NULL DEFAULT 0, UxCaja money NOT NULL DEFAULT 1, Largo money NOT NULL DEFAULT 0, Ancho money NOT NULL DEFAULT 0, Altura money NOT NULL
DEFAULT 0, Control_NSeries bit NOT NULL DEFAULT 0, DStock bit NOT NULL DEFAULT 1, TipoImpuesto tinyint NOT NULL DEFAULT 1, CtaVentas varchar(15) NOT NULL DEFAULT '', CtaDVentas
varchar(15) NOT NULL DEFAULT '', Bloqueado bit NOT NULL DEFAULT 0, MsjAlerta varchar(200) NOT NULL DEFAULT '', Envase int NOT NULL DEFAULT 0, RAEE money NOT NULL DEFAULT 0, ECORAEE
money NOT NULL DEFAULT 0, FidelizacionPuntos int NOT NULL DEFAULT 0, Control_Caducidad bit NOT NULL DEFAULT 0, TipoRep smallint NOT NULL DEFAULT 0, Control_Lotes bit NOT NULL
DEFAULT 0, Peso money NOT NULL DEFAULT 0, MotivoBaja smallint NOT NULL DEFAULT 0, BajoPedido bit NOT NULL DEFAULT 0, TipoImpuesto2 tinyint NOT NULL DEFAULT 0, UnidadesDecimales bit
NOT NULL DEFAULT 0, PadreVenta int NOT NULL DEFAULT 0, Tipo tinyint NOT NULL DEFAULT 0, FUCompra date NOT NULL DEFAULT '1900-01-01', FUVenta date NOT NULL DEFAULT '1900-01-01',
PU_Compra float NOT NULL DEFAULT 0, DF_PU_Compra float NOT NULL DEFAULT 0, Mod_Ficha bit NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Articulos_Familias ON Articulos (Cod_Empresa, Familia_1, Familia_2, Familia_3, Descripcion);
CREATE TABLE Tarifas (Cod_Empresa smallint NOT NULL, Codigo smallint NOT NULL, Descripcion varchar(40) NOT NULL DEFAULT '', PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE TABLE Articulos_Tarifas (Cod_Empresa smallint NOT NULL, Cod_Articulo int NOT NULL, Cod_Tarifa smallint NOT NULL, Pvp money NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa,
Cod_Articulo, Cod_Tarifa)) WITHOUT ROWID;
CREATE TABLE Articulos_Tarifas_C (Cod_Empresa smallint NOT NULL, Cod_Articulo int NOT NULL, CualidadX tinyint NOT NULL, Cod_Tarifa smallint NOT NULL, Pvp money NOT NULL DEFAULT 0,
PRIMARY KEY (Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa)) WITHOUT ROWID;
CREATE TABLE Tarifas_Modificacion (Codigo int NOT NULL, Cod_Empresa smallint NOT NULL, Cod_Articulo int NOT NULL, Cod_Tarifa smallint NOT NULL, Pvp money NOT NULL DEFAULT 0,
Fecha_Entrada date NOT NULL, Actualizado bit NOT NULL DEFAULT 0, Borrado bit NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Fecha_Entrada, Codigo)) WITHOUT
ROWID;
CREATE TABLE Tarifas_Modificacion_C (Codigo int NOT NULL, Cod_Empresa smallint NOT NULL, Cod_Articulo int NOT NULL, CualidadX tinyint NOT NULL, Cod_Tarifa smallint NOT NULL, Pvp
money NOT NULL DEFAULT 0, Fecha_Entrada date NOT NULL, Actualizado bit NOT NULL DEFAULT 0, Borrado bit NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Articulo, CualidadX,
Cod_Tarifa, Fecha_Entrada, Codigo)) WITHOUT ROWID;
CREATE TABLE Almacenes (Cod_Empresa smallint NOT NULL, Codigo smallint NOT NULL, Nombre varchar(40) NOT NULL DEFAULT '', FUCompra date NOT NULL DEFAULT '1900-01-01', FUVenta date
NOT NULL DEFAULT '1900-01-01', PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE TABLE Almacen_Articulos (Cod_Empresa smallint NOT NULL, Cod_Almacen smallint NOT NULL, Cod_Articulo int NOT NULL, Ubicacion varchar(30) NOT NULL DEFAULT '', Stock_Actual
float NOT NULL DEFAULT 0, Stock_Peso float NOT NULL DEFAULT 0, Stock_Minimo float NOT NULL DEFAULT 0, Stock_Optimo float NOT NULL DEFAULT 0, Pend_Recibir float NOT NULL DEFAULT 0,
Pend_Servir float NOT NULL DEFAULT 0, Stock_MiniCompra float NOT NULL DEFAULT 0, Categoria varchar(10) NOT NULL DEFAULT '', Cobertura smallint NOT NULL DEFAULT 0, Plazo_Reposicion
smallint NOT NULL DEFAULT 0, PU_Compra float NOT NULL DEFAULT 0, P_Medio float NOT NULL DEFAULT 0, Rotacion float NOT NULL DEFAULT 0, FUlt_Compra date NOT NULL DEFAULT
'1900-01-01', FUlt_Venta date NOT NULL DEFAULT '1900-01-01', FUlt_Inv date NOT NULL DEFAULT '1900-01-01', FIni_Existencias date NOT NULL DEFAULT '1900-01-01', FFin_Existencias date
NOT NULL DEFAULT '1900-01-01', F_Dormido date NOT NULL DEFAULT '1900-01-01', Bloqueo bit NOT NULL DEFAULT 0, BloqueoVenta bit NOT NULL DEFAULT 0, ArticuloGenerico bit NOT NULL
DEFAULT 0, DF_PU_Compra float NOT NULL DEFAULT 0, DF_P_Medio float NOT NULL DEFAULT 0, Desglosa_Pack bit NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Articulo))
WITHOUT ROWID;
CREATE TABLE Almacen_Articulos_C (Cod_Empresa smallint NOT NULL, Cod_Almacen smallint NOT NULL, Cod_Articulo int NOT NULL, CualidadX tinyint NOT NULL, CualidadY tinyint NOT NULL,
Stock_Actual float NOT NULL DEFAULT 0, Stock_Peso float NOT NULL DEFAULT 0, Pend_Recibir float NOT NULL DEFAULT 0, Pend_Servir float NOT NULL DEFAULT 0, Stock_MiniCompra float NOT
NULL DEFAULT 0, PU_Compra float NOT NULL DEFAULT 0, P_Medio float NOT NULL DEFAULT 0, FUlt_Compra date NOT NULL DEFAULT '1900-01-01', FUlt_Venta date NOT NULL DEFAULT '1900-01-01',
FIni_Existencias date NOT NULL DEFAULT '1900-01-01', FFin_Existencias date NOT NULL DEFAULT '1900-01-01', Bloqueo bit NOT NULL DEFAULT 0, DF_PU_Compra float NOT NULL DEFAULT 0,
DF_P_Medio float NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY)) WITHOUT ROWID;
CREATE TABLE Almacen_Articulos_Ubic (Cod_Empresa smallint NOT NULL, Cod_Almacen smallint NOT NULL, Cod_Articulo int NOT NULL, Ubic1 varchar(10) NOT NULL COLLATE NOCASE, Ubic2
varchar(10) NOT NULL COLLATE NOCASE, Ubic3 varchar(10) NOT NULL COLLATE NOCASE, Ubic4 varchar(10) NOT NULL COLLATE NOCASE, Ubic5 varchar(10) NOT NULL COLLATE NOCASE, Stock_Actual
float NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubic1, Ubic2, Ubic3, Ubic4, Ubic5)) WITHOUT ROWID;
CREATE TABLE Clientes (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Nombre varchar(60) NOT NULL DEFAULT '' COLLATE NOCASE, Nombre_Comercial varchar(60) NOT NULL DEFAULT '',
Direccion varchar(80) NOT NULL DEFAULT '', Localidad varchar(50) NOT NULL DEFAULT '', Provincia varchar(30) NOT NULL DEFAULT '', Pais varchar(30) NOT NULL DEFAULT '', EMail
varchar(80) NOT NULL DEFAULT '', Telefono varchar(20) NOT NULL DEFAULT '', MotivoBaja smallint NOT NULL DEFAULT 0, F_Razon varchar(60) NOT NULL DEFAULT '', F_Via varchar(10) NOT
NULL DEFAULT '', F_Direccion varchar(80) NOT NULL DEFAULT '', F_Numero varchar(10) NOT NULL DEFAULT '', F_Escalera varchar(5) NOT NULL DEFAULT '', F_Piso varchar(5) NOT NULL
DEFAULT '', F_Puerta varchar(5) NOT NULL DEFAULT '', F_Cp varchar(10) NOT NULL DEFAULT '', F_Localidad varchar(50) NOT NULL DEFAULT '', F_Provincia varchar(30) NOT NULL DEFAULT '',
F_Pais varchar(30) NOT NULL DEFAULT '', F_eMail varchar(80) NOT NULL DEFAULT '', F_Web varchar(80) NOT NULL DEFAULT '', IntraCom bit NOT NULL DEFAULT 0, Portes bit NOT NULL DEFAULT
0, Divisas smallint NOT NULL DEFAULT 0, Ruta smallint NOT NULL DEFAULT 0, Zona smallint NOT NULL DEFAULT 0, Actividad smallint NOT NULL DEFAULT 0, Agencia_Transp smallint NOT NULL
DEFAULT 0, padre int NOT NULL DEFAULT 0, Almacen_Asoc smallint NOT NULL DEFAULT 0, Tarifa_Pvp smallint NOT NULL DEFAULT 0, Tarifa_Promoc smallint NOT NULL DEFAULT 0, Bloqueado bit
NOT NULL DEFAULT 0, Fecha_Bloq date, Motivo_Bloq varchar(100) NOT NULL DEFAULT '', Representante smallint NOT NULL DEFAULT 0, Vendedor smallint NOT NULL DEFAULT 0, Cobrador
smallint NOT NULL DEFAULT 0, Fecha_Especial date, Desc_Especial varchar(60) NOT NULL DEFAULT '', Contravale bit NOT NULL DEFAULT 0, Mtto bit NOT NULL DEFAULT 0, Copias_Fra tinyint
NOT NULL DEFAULT 1, Mensaje varchar(200) NOT NULL DEFAULT '', Tipo_Impresion tinyint NOT NULL DEFAULT 0, Tipo_Venta tinyint NOT NULL DEFAULT 0, Cod_Albaranes smallint NOT NULL
DEFAULT 0, Periodo_Fact tinyint NOT NULL DEFAULT 0, Fact_Indep bit NOT NULL DEFAULT 0, Cta_Cliente varchar(15) NOT NULL DEFAULT '', Cta_Retenciones varchar(15) NOT NULL DEFAULT '',
Cta_Efectos varchar(15) NOT NULL DEFAULT '', Cta_Ventas varchar(15) NOT NULL DEFAULT '', Cta_DVentas varchar(15) NOT NULL DEFAULT '', Cod_FPago smallint NOT NULL DEFAULT 0,
DiaPago_1 tinyint NOT NULL DEFAULT 0, DiaPago_2 tinyint NOT NULL DEFAULT 0, DiaCierre_1 tinyint NOT NULL DEFAULT 0, DiaCierre_2 tinyint NOT NULL DEFAULT 0, TipoVenc tinyint NOT
NULL DEFAULT 0, Dias_Venc smallint NOT NULL DEFAULT 0, Tipo_Carta tinyint NOT NULL DEFAULT 0, Grupo_Dto smallint NOT NULL DEFAULT 0, Dto_1 money NOT NULL DEFAULT 0, Dto_2 money NOT
NULL DEFAULT 0, Dto_3 money NOT NULL DEFAULT 0, Dto_4 money NOT NULL DEFAULT 0, Dto_5 money NOT NULL DEFAULT 0, Dto_ProntoPago money NOT NULL DEFAULT 0, Retenciones money NOT NULL
DEFAULT 0, Rec_Financiero money NOT NULL DEFAULT 0, Cta_Bancaria varchar(24) NOT NULL DEFAULT '', Cta_Remesas varchar(24) NOT NULL DEFAULT '', Credito money NOT NULL DEFAULT 0,
Riesgo money NOT NULL DEFAULT 0, Observ varchar(500) NOT NULL DEFAULT '', MsgAlerta varchar(200) NOT NULL DEFAULT '', Serie varchar(5) NOT NULL DEFAULT '', MaxPuntos int NOT NULL
DEFAULT 0, FAlta date, FBaja date, FUVenta date, FUCobro date, Alternativo1 varchar(50) NOT NULL DEFAULT '', Alternativo2 varchar(50) NOT NULL DEFAULT '', Alternativo3 varchar(50)
NOT NULL DEFAULT '', Alternativo4 varchar(50) NOT NULL DEFAULT '', Alternativo5 varchar(50) NOT NULL DEFAULT '', TipoCliente smallint NOT NULL DEFAULT 0, EnvioEDI bit NOT NULL
DEFAULT 0, Cad_Nivel_1 smallint NOT NULL DEFAULT 0, Cad_Nivel_2 smallint NOT NULL DEFAULT 0, Cad_Nivel_3 smallint NOT NULL DEFAULT 0, Cad_Nivel_4 smallint NOT NULL DEFAULT 0,
Cad_Nivel_5 smallint NOT NULL DEFAULT 0, Cad_Nivel_6 smallint NOT NULL DEFAULT 0, Cad_Nivel_7 smallint NOT NULL DEFAULT 0, Cad_Nivel_8 smallint NOT NULL DEFAULT 0, Cad_Nivel_9
smallint NOT NULL DEFAULT 0, Cad_Nivel_10 smallint NOT NULL DEFAULT 0, Factura_PedirLote bit NOT NULL DEFAULT 0, Factura_PedirVto bit NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa,
Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Nombre ON Clientes (Cod_Empresa, Nombre);
CREATE INDEX IX_Clientes_Codigo ON Clientes (Codigo);
CREATE INDEX IX_Clientes_Padre ON Clientes (Cod_Empresa, padre);
CREATE TABLE Clientes_Telefonos (Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Codigo tinyint NOT NULL, Numero varchar(20) NOT NULL DEFAULT '', PRIMARY KEY (Cod_Empresa,
Cod_Cliente, Codigo)) WITHOUT ROWID;
CREATE TABLE Clientes_Contactos (Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Codigo smallint NOT NULL, Nombre varchar(60) NOT NULL DEFAULT '', PRIMARY KEY
(Cod_Empresa, Cod_Cliente, Codigo)) WITHOUT ROWID;
CREATE TABLE Clientes_Instalaciones (Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Codigo smallint NOT NULL, Nombre varchar(60) NOT NULL DEFAULT '', PRIMARY KEY
(Cod_Empresa, Cod_Cliente, Codigo)) WITHOUT ROWID;
CREATE TABLE Clientes_Empleados (Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Codigo smallint NOT NULL, Nombre varchar(60) NOT NULL DEFAULT '', PRIMARY KEY
(Cod_Empresa, Cod_Cliente, Codigo)) WITHOUT ROWID;
CREATE TABLE Clientes_Notas (Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Codigo smallint NOT NULL, Texto varchar(200) NOT NULL DEFAULT '', Pendiente bit NOT NULL
DEFAULT 0, Vencimiento date NOT NULL DEFAULT '1900-01-01', PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Notas_Pendientes ON Clientes_Notas (Cod_Empresa, Pendiente, Vencimiento);
CREATE TABLE Clientes_Puntos (Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Codigo int NOT NULL, Fecha date NOT NULL DEFAULT '1900-01-01', Puntos int NOT NULL DEFAULT 0,
PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)) WITHOUT ROWID;
CREATE TABLE Clientes_Grp_Descuentos (Cod_Empresa smallint NOT NULL, Codigo smallint NOT NULL, Descripcion varchar(40) NOT NULL DEFAULT '', Act bit NOT NULL DEFAULT 0, PRIMARY KEY
(Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE TABLE Clientes_Grp_Descuentos_Fam (Cod_Empresa smallint NOT NULL, Cod_Grupo smallint NOT NULL, Nivel tinyint NOT NULL, Familia_1 smallint NOT NULL, Familia_2 smallint NOT
NULL, Familia_3 smallint NOT NULL, Cod_Articulo int NOT NULL, Unidades_Min money NOT NULL, Unidades_Max money NOT NULL, Descuento float NOT NULL DEFAULT 0, Tipo_Descuento tinyint
NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Grupo, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Unidades_Min, Unidades_Max)) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Grp_Descuentos_Fam_Articulo ON Clientes_Grp_Descuentos_Fam (Cod_Empresa, Cod_Grupo, Nivel, Cod_Articulo);
CREATE TABLE Descuentos_Familias (Codigo int NOT NULL DEFAULT 0, Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Nivel tinyint NOT NULL, Familia_1 smallint NOT NULL,
Familia_2 smallint NOT NULL, Familia_3 smallint NOT NULL, Cod_Articulo int NOT NULL, Descuento float NOT NULL DEFAULT 0, Tipo_Descuento tinyint NOT NULL DEFAULT 0, PRIMARY KEY
(Cod_Empresa, Cod_Cliente, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo)) WITHOUT ROWID;
CREATE INDEX IX_Descuentos_Familias_Articulo ON Descuentos_Familias (Cod_Empresa, Cod_Cliente, Nivel, Cod_Articulo);
CREATE TABLE Clientes_Cadenas_ConvArt (Cod_Empresa smallint NOT NULL, Cod_Articulo int NOT NULL, Cod_Nivel1 smallint NOT NULL, Cod_Nivel2 smallint NOT NULL, Cod_Nivel3 smallint NOT
NULL, Cod_Nivel4 smallint NOT NULL, Cod_Nivel5 smallint NOT NULL, Cod_Nivel6 smallint NOT NULL, Cod_Nivel7 smallint NOT NULL, Cod_Nivel8 smallint NOT NULL, Cod_Nivel9 smallint NOT
NULL, Cod_Nivel10 smallint NOT NULL, FechaEntrada date NOT NULL DEFAULT (date('now', 'localtime')), FechaSalida date NOT NULL DEFAULT '2050-12-31', PBase money NOT NULL DEFAULT 0,
TDto1 smallint NOT NULL DEFAULT 0, ImporteDto1 money NOT NULL DEFAULT 0, CantidadDto1 money NOT NULL DEFAULT 0, Aplicar_Cascada1 bit NOT NULL DEFAULT 0, FechaEntrada1 date NOT NULL
DEFAULT '1900-01-01', FechaSalida1 date NOT NULL DEFAULT '2050-12-31', TDto2 smallint NOT NULL DEFAULT 0, ImporteDto2 money NOT NULL DEFAULT 0, CantidadDto2 money NOT NULL DEFAULT
0, Aplicar_Cascada2 bit NOT NULL DEFAULT 0, FechaEntrada2 date NOT NULL DEFAULT '1900-01-01', FechaSalida2 date NOT NULL DEFAULT '2050-12-31', TDto3 smallint NOT NULL DEFAULT 0,
ImporteDto3 money NOT NULL DEFAULT 0, CantidadDto3 money NOT NULL DEFAULT 0, Aplicar_Cascada3 bit NOT NULL DEFAULT 0, FechaEntrada3 date NOT NULL DEFAULT '1900-01-01', FechaSalida3
date NOT NULL DEFAULT '2050-12-31', TDto4 smallint NOT NULL DEFAULT 0, ImporteDto4 money NOT NULL DEFAULT 0, CantidadDto4 money NOT NULL DEFAULT 0, Aplicar_Cascada4 bit NOT NULL
DEFAULT 0, FechaEntrada4 date NOT NULL DEFAULT '1900-01-01', FechaSalida4 date NOT NULL DEFAULT '2050-12-31', TDto5 smallint NOT NULL DEFAULT 0, ImporteDto5 money NOT NULL DEFAULT
0, CantidadDto5 money NOT NULL DEFAULT 0, Aplicar_Cascada5 bit NOT NULL DEFAULT 0, FechaEntrada5 date NOT NULL DEFAULT '1900-01-01', FechaSalida5 date NOT NULL DEFAULT
'2050-12-31', Dto_Padre bit NOT NULL DEFAULT 0, Nivel smallint NOT NULL DEFAULT 0, Enviado smallint NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Nivel1,
Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada)) WITHOUT ROWID;
CREATE TABLE Clientes_Convenio_Pvp (Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Cod_Articulo int NOT NULL, Cod_ArticuloB int NOT NULL DEFAULT 0, PUC money NOT NULL
DEFAULT 0, Pvp money NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Cliente, Cod_Articulo)) WITHOUT ROWID;
CREATE TABLE Clientes_Art_PVP (Cod_Empresa smallint NOT NULL, Cod_Cliente int NOT NULL, Cod_Articulo int NOT NULL, Fecha_Inicial date NOT NULL, Fecha_Final date NOT NULL, PVP float
NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final)) WITHOUT ROWID;
CREATE INDEX IX_Clientes_Art_PVP_Articulo ON Clientes_Art_PVP (Cod_Empresa, Cod_Articulo, Cod_Cliente, PVP);
CREATE TABLE Clientes_Articulos (Cod_Empresa smallint NOT NULL, Cod_Almacen smallint NOT NULL, Cod_Cliente int NOT NULL, Cod_Articulo int NOT NULL, Fecha date NOT NULL, Unidades
money NOT NULL DEFAULT 0, Importe_PVP money NOT NULL DEFAULT 0, Importe_Costo money NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, Fecha))
WITHOUT ROWID;
CREATE INDEX IX_Clientes_Articulos_Cliente ON Clientes_Articulos (Cod_Empresa, Cod_Cliente);
CREATE TABLE Clientes_Articulos_Tx (Cod_Empresa smallint NOT NULL, Cod_Almacen smallint NOT NULL, Cod_Cliente int NOT NULL, Cod_Articulo int NOT NULL, Fecha date NOT NULL, Unidades
money NOT NULL DEFAULT 0, Importe_PVP money NOT NULL DEFAULT 0, Importe_Costo money NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, Fecha))
WITHOUT ROWID;
CREATE TABLE Clientes_Articulos_C (Cod_Empresa smallint NOT NULL, Cod_Almacen smallint NOT NULL, Cod_Cliente int NOT NULL, Cod_Articulo int NOT NULL, CualidadX tinyint NOT NULL,
CualidadY tinyint NOT NULL, Fecha date NOT NULL, Unidades money NOT NULL DEFAULT 0, Importe_PVP money NOT NULL DEFAULT 0, Importe_Costo money NOT NULL DEFAULT 0, PRIMARY KEY
(Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, CualidadX, CualidadY, Fecha)) WITHOUT ROWID;
CREATE TABLE Clientes_Articulos_C_Tx (Cod_Empresa smallint NOT NULL, Cod_Almacen smallint NOT NULL, Cod_Cliente int NOT NULL, Cod_Articulo int NOT NULL, CualidadX tinyint NOT NULL,
CualidadY tinyint NOT NULL, Fecha date NOT NULL, Unidades money NOT NULL DEFAULT 0, Importe_PVP money NOT NULL DEFAULT 0, Importe_Costo money NOT NULL DEFAULT 0, PRIMARY KEY
(Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, CualidadX, CualidadY, Fecha)) WITHOUT ROWID;
CREATE TABLE Facturas (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT NULL DEFAULT 0,
PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Facturas_Cliente ON Facturas (Cod_Empresa, Cliente);
CREATE TABLE Facturas_Ex (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT NULL DEFAULT
0, PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Facturas_Ex_Cliente ON Facturas_Ex (Cod_Empresa, Cliente);
CREATE TABLE Albaranes_F (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT NULL DEFAULT
0, Factura_Codigo int NOT NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Albaranes_F_Cliente ON Albaranes_F (Cod_Empresa, Cliente, Factura_Codigo, Total);
CREATE TABLE AlbaranesST (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT NULL DEFAULT
0, PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_AlbaranesST_Cliente ON AlbaranesST (Cod_Empresa, Cliente);
CREATE TABLE Entradas_ST (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT NULL DEFAULT
0, PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Entradas_ST_Cliente ON Entradas_ST (Cod_Empresa, Cliente);
CREATE TABLE Pedidos_Clientes (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cod_Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT
NULL DEFAULT 0, PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Pedidos_Clientes_Cliente ON Pedidos_Clientes (Cod_Empresa, Cod_Cliente);
CREATE TABLE Presup (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT NULL DEFAULT 0,
PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Presup_Cliente ON Presup (Cod_Empresa, Cliente);
CREATE TABLE Proformas (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT NULL DEFAULT
0, PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_Proformas_Cliente ON Proformas (Cod_Empresa, Cliente);
CREATE TABLE TPV_Tickets (Cod_Empresa smallint NOT NULL, Codigo int NOT NULL, Cliente int NOT NULL DEFAULT 0, Fecha date NOT NULL DEFAULT '1900-01-01', Total money NOT NULL DEFAULT
0, PRIMARY KEY (Cod_Empresa, Codigo)) WITHOUT ROWID;
CREATE INDEX IX_TPV_Tickets_Cliente ON TPV_Tickets (Cod_Empresa, Cliente);
CREATE TABLE Temp_EtiquetasSueltas_Clientes (Cod_Cliente int NOT NULL, Codigo int NOT NULL, PRIMARY KEY (Cod_Cliente, Codigo)) WITHOUT ROWID;
CREATE TABLE Temp_FactExt (Cod_Empresa smallint NOT NULL, Cliente int NOT NULL, Codigo int NOT NULL, PRIMARY KEY (Cod_Empresa, Cliente, Codigo)) WITHOUT ROWID;
CREATE TABLE Procedimientos (Nombre varchar(60) NOT NULL COLLATE NOCASE, Cuerpo varchar(4000) NOT NULL, PRIMARY KEY (Nombre)) WITHOUT ROWID;
INSERT INTO Procedimientos (Nombre, Cuerpo) VALUES ('KVP_DevDtoDescuentosFamilias', ' SELECT COALESCE((SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND
Cod_Cliente = @Cliente AND Nivel = @Nivel AND Cod_Articulo = @Articulo ORDER BY Familia_1, Familia_2, Familia_3 LIMIT 1), (SELECT Descuento FROM Descuentos_Familias WHERE
Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente AND @EmpFamilia3 <> 0 AND Nivel = 3 AND @Niveles >= 3 AND Familia_1 = @Familia1 AND Familia_2 = @Familia2 AND Familia_3 =
@Familia3 AND Cod_Articulo = 0), (SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND Cod_Cliente = @Cliente AND @EmpFamilia2 <> 0 AND Nivel = 2 AND @Niveles
>= 2 AND Familia_1 = @Familia1 AND Familia_2 = @Familia2 AND Familia_3 = 0 AND Cod_Articulo = 0), (SELECT Descuento FROM Descuentos_Familias WHERE Cod_Empresa = @Empresa AND
Cod_Cliente = @Cliente AND @EmpFamilia1 <> 0 AND Nivel = 1 AND Familia_1 = @Familia1 AND Familia_2 = 0 AND Familia_3 = 0 AND Cod_Articulo = 0), 0) AS Dto');
INSERT INTO Procedimientos (Nombre, Cuerpo) VALUES ('KVP_DevDtoClientesGrupos', ' WITH Grupo (Codigo) AS (SELECT Grupo_Dto FROM Clientes WHERE Codigo = @Cliente AND Cod_Empresa =
(SELECT Cod_EmpresaClientes FROM Empresas WHERE Codigo = @Empresa)) SELECT COALESCE((SELECT Descuento FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo =
(SELECT Codigo FROM Grupo) AND Nivel = @Nivel AND Cod_Articulo = @Articulo AND ((Unidades_Min <= @Unidades AND Unidades_Max >= @Unidades) OR (Unidades_Min = 0 AND Unidades_Max =
0)) ORDER BY CASE WHEN Unidades_Min = 0 AND Unidades_Max = 0 THEN 1 ELSE 0 END, Unidades_Min DESC, Unidades_Max, Familia_1, Familia_2, Familia_3 LIMIT 1), (SELECT Descuento FROM
Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo = (SELECT Codigo FROM Grupo) AND @EmpFamilia3 <> 0 AND Nivel = 3 AND @Niveles >= 3 AND Familia_1 = @Familia1
AND Familia_2 = @Familia2 AND Familia_3 = @Familia3 AND Cod_Articulo = 0 AND ((Unidades_Min <= @Unidades AND Unidades_Max >= @Unidades) OR (Unidades_Min = 0 AND Unidades_Max = 0))
ORDER BY CASE WHEN Unidades_Min = 0 AND Unidades_Max = 0 THEN 1 ELSE 0 END, Unidades_Min DESC, Unidades_Max LIMIT 1), (SELECT Descuento FROM Clientes_Grp_Descuentos_Fam WHERE
Cod_Empresa = @Empresa AND Cod_Grupo = (SELECT Codigo FROM Grupo) AND @EmpFamilia2 <> 0 AND Nivel = 2 AND @Niveles >= 2 AND Familia_1 = @Familia1 AND Familia_2 = @Familia2 AND
Familia_3 = 0 AND Cod_Articulo = 0 AND ((Unidades_Min <= @Unidades AND Unidades_Max >= @Unidades) OR (Unidades_Min = 0 AND Unidades_Max = 0)) ORDER BY CASE WHEN Unidades_Min = 0
AND Unidades_Max = 0 THEN 1 ELSE 0 END, Unidades_Min DESC, Unidades_Max LIMIT 1), (SELECT Descuento FROM Clientes_Grp_Descuentos_Fam WHERE Cod_Empresa = @Empresa AND Cod_Grupo =
(SELECT Codigo FROM Grupo) AND @EmpFamilia1 <> 0 AND Nivel = 1 AND Familia_1 = @Familia1 AND Familia_2 = 0 AND Familia_3 = 0 AND Cod_Articulo = 0 AND ((Unidades_Min <= @Unidades
AND Unidades_Max >= @Unidades) OR (Unidades_Min = 0 AND Unidades_Max = 0)) ORDER BY CASE WHEN Unidades_Min = 0 AND Unidades_Max = 0 THEN 1 ELSE 0 END, Unidades_Min DESC,
Unidades_Max LIMIT 1), 0) AS Dto');
