// The package that scripts/javascript.sh builds, and the module inside it.
export * from "../../../build/js/package/index.js";
export { wasm } from "../../../build/js/package/module.js";
