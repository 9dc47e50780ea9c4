// The package that scripts/javascript.sh builds.
export * from "../../../build/js/package/index.js";
