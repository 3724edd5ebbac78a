// A field that finds while one types: by code or by words, with the arrows, Enter and Escape.

import {contar, crear, preguntar, turno} from './comun.js';

const ESPERA = 120;
const VISIBLES = 12;

/** Articles and customers, as a line says them. */
const NOMBRES = {
    articulos: fila => fila.descripcion,
    clientes: fila => fila.nombre + (fila.localidad ? `, ${fila.localidad}` : ''),
};

export class Buscador {
    /** `empresa` says where to look; `alElegir` hears of each new code. */
    constructor(caja, id, empresa, alElegir) {
        this.listado = caja.dataset.busca;
        this.campo = caja.querySelector('input');
        this.empresa = empresa;
        this.alElegir = alElegir;
        this.codigo = '';
        this.nombre = '';
        this.activa = -1;
        this.turno = turno();
        this.opciones = crear('ul', {id, role: 'listbox', hidden: true, 'aria-label': this.listado === 'articulos' ? 'Artículos' : 'Clientes'});
        this.nota = crear('p', {class: 'nota', role: 'status', hidden: true});
        caja.append(this.opciones, this.nota);
        for (const [nombre, valor] of Object.entries({role: 'combobox', 'aria-autocomplete': 'list', 'aria-expanded': 'false', 'aria-controls': id}))
            this.campo.setAttribute(nombre, valor);
        this.campo.addEventListener('input', () => this.#teclear());
        this.campo.addEventListener('keydown', evento => this.#tecla(evento));
        this.campo.addEventListener('focus', () => this.campo.select());
        this.campo.addEventListener('blur', () => this.#dejar());
    }

    /** Shows a code, with its name as soon as it is known. */
    poner(codigo, nombre = '') {
        if (codigo === this.codigo && !nombre) nombre = this.nombre;
        this.codigo = codigo;
        this.nombre = nombre;
        if (document.activeElement !== this.campo || !this.escribiendo) this.#pintar();
    }

    /** Looks up the name of the code that is shown. */
    async nombrar(senal) {
        const codigo = this.codigo;
        if (!codigo || this.nombre) return;
        const hallado = await preguntar(this.listado, {empresa: this.empresa(), texto: codigo, limite: 200}, senal).catch(() => null);
        const fila = hallado?.[this.listado].find(f => String(f.codigo) === codigo);
        if (fila && codigo === this.codigo) this.poner(codigo, NOMBRES[this.listado](fila));
    }

    #pintar() {
        const texto = this.nombre ? `${this.codigo} · ${this.nombre}` : this.codigo;
        if (this.campo.value === texto) return;
        this.campo.value = texto;
        if (document.activeElement === this.campo) this.campo.select();
    }

    #teclear() {
        this.escribiendo = true;
        clearTimeout(this.reloj);
        this.reloj = setTimeout(() => this.turno(senal => this.#buscar(senal)), ESPERA);
    }

    async #buscar(senal) {
        const texto = this.campo.value.trim();
        if (!texto) return this.#cerrar();
        try {
            const hallado = await preguntar(this.listado, {empresa: this.empresa(), texto, limite: VISIBLES}, senal);
            this.#ofrecer(hallado[this.listado], hallado.hallados, texto);
        } catch (error) {
            if (error.name === 'AbortError') throw error;
            this.#ofrecer([], 0, texto, error.message);
        }
    }

    #ofrecer(filas, hallados, texto, fallo = '') {
        filas.sort((a, b) => (String(b.codigo) === texto) - (String(a.codigo) === texto));
        this.filas = filas;
        this.activa = -1;
        this.opciones.replaceChildren(...filas.map((fila, i) => crear('li', {
            id: `${this.opciones.id}-${i}`, role: 'option', 'aria-selected': 'false',
            mousedown: evento => { evento.preventDefault(); this.#elegir(fila); },
        }, crear('b', {}, String(fila.codigo)), ` ${NOMBRES[this.listado](fila)}`, fila.bloqueado ? crear('i', {}, ' (bloqueado)') : null)));
        this.opciones.hidden = filas.length === 0;
        this.campo.setAttribute('aria-expanded', String(filas.length > 0));
        this.nota.textContent = fallo || (hallados > filas.length ? `${contar(hallados, 'hallado', 'hallados')}; se ven ${filas.length}: escriba otra palabra` : contar(hallados, 'hallado', 'hallados'));
        this.nota.hidden = false;
    }

    #tecla(evento) {
        const abierta = !this.opciones.hidden;
        if (evento.key === 'ArrowDown' && !abierta) this.#teclear();
        else if ((evento.key === 'ArrowDown' || evento.key === 'ArrowUp') && abierta) this.#mover(evento.key === 'ArrowDown' ? 1 : -1);
        else if (evento.key === 'Escape') this.#cerrar(), this.#pintar();
        else if (evento.key === 'Enter') this.#aceptar();
        else return;
        evento.preventDefault();
    }

    #mover(paso) {
        const n = this.filas.length;
        this.activa = this.activa < 0 && paso < 0 ? n - 1 : (this.activa + paso + n) % n;
        [...this.opciones.children].forEach((opcion, i) => opcion.setAttribute('aria-selected', String(i === this.activa)));
        this.opciones.children[this.activa].scrollIntoView({block: 'nearest'});
        this.campo.setAttribute('aria-activedescendant', `${this.opciones.id}-${this.activa}`);
    }

    // Enter: the option that is marked, a code as it was typed, or else the first that was found.
    async #aceptar() {
        const texto = this.campo.value.trim();
        if (this.activa >= 0) return this.#elegir(this.filas[this.activa]);
        if (/^\d+$/.test(texto) || texto === '') return this.#elegir({codigo: texto});
        if (!this.escribiendo) return;
        await this.turno(senal => this.#buscar(senal));
        if (this.filas?.length > 0 && this.escribiendo) this.#elegir(this.filas[0]);
    }

    #dejar() {
        const texto = this.campo.value.trim();
        if (this.escribiendo && (/^\d+$/.test(texto) || texto === '')) this.#elegir({codigo: texto});
        this.#cerrar();
        this.#pintar();
    }

    #elegir(fila) {
        const nombre = 'nombre' in fila || 'descripcion' in fila ? NOMBRES[this.listado](fila) : '';
        const cambia = String(fila.codigo) !== this.codigo;
        this.#cerrar();
        this.poner(String(fila.codigo), nombre);
        this.#pintar();
        if (cambia) this.alElegir();
    }

    #cerrar() {
        clearTimeout(this.reloj);
        this.turno(async () => {});
        this.escribiendo = false;
        this.activa = -1;
        this.opciones.hidden = this.nota.hidden = true;
        this.campo.setAttribute('aria-expanded', 'false');
        this.campo.removeAttribute('aria-activedescendant');
    }
}
